#include "bench/system/trials/languages.h"

#include "lib/text/hexadecimal.h"

namespace bench {

CommandSender::Language daemonLanguage() {
    return {[](std::uint8_t value) {
                return "a" + zolt_text::hexDigit(kOutputCard) + "b0d" + zolt_text::hexByte(value) +
                       "\r\n";
            },
            ""};
}

// The card's other block stays as the daemon presets it.
CommandSender::Language gatewayLanguage() {
    return {[](std::uint8_t value) {
                return std::string{
                    '\5',  '\x10', static_cast<char>(kOutputCard), '\2', static_cast<char>(value),
                    '\xFF'};
            },
            "\1\6"};
}

}  // namespace bench
