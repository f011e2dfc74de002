#include "lib/ports/reports.h"

#include "lib/text/hexadecimal.h"

namespace zolt_ports {

using zolt_text::hexDigit;
using zolt_text::parseHexByte;
using zolt_text::parseHexDigit;

std::optional<Report> parseReport(std::string_view line) {
    constexpr std::size_t kLength = 7;
    if (line.size() < kLength || line[0] != 'a' || line[2] != 'b' || line[4] != 'd' ||
        (line.size() > kLength && parseHexDigit(line[kLength]))) {
        return std::nullopt;
    }
    const auto address = parseHexDigit(line[1]);
    const auto block = parseHexDigit(line[3]);
    const auto value = parseHexByte(line.substr(5, 2));
    if (!address || !block || !value) {
        return std::nullopt;
    }
    return Report{hexDigit(*address)[0], *block, *value};
}

}  // namespace zolt_ports
