#include "lib/text/escape.h"

#include <cstdint>
#include <stdexcept>

#include "lib/text/hexadecimal.h"

namespace zolt_text {
namespace {

std::string escaped(char byte) {
    if (byte == '\\') {
        return "\\\\";
    }
    return byte >= ' ' && byte <= '~' ? std::string(1, byte) : escapeOf(byte);
}

/// The byte of the two digits after "\x".
char hexEscaped(std::string_view digits) {
    const auto byte = digits.size() == 2 ? parseHexByte(digits) : std::nullopt;
    if (!byte) {
        throw std::invalid_argument("\\x needs two hexadecimal digits");
    }
    return static_cast<char>(*byte);
}

}  // namespace

std::string hexEscape(char byte) {
    return "\\x" + hexByte(static_cast<std::uint8_t>(byte));
}

std::string escapeOf(char byte) {
    switch (byte) {
        case '\r':
            return "\\r";
        case '\n':
            return "\\n";
        case '\t':
            return "\\t";
        default:
            return hexEscape(byte);
    }
}

std::string escape(std::string_view bytes) {
    std::string text;
    for (const char byte : bytes) {
        text += escaped(byte);
    }
    return text;
}

std::string unescape(std::string_view text) {
    std::string bytes;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '\\') {
            bytes += text[i];
            continue;
        }
        if (++i == text.size()) {
            throw std::invalid_argument("text ends in a backslash");
        }
        switch (text[i]) {
            case 'r':
                bytes += '\r';
                break;
            case 'n':
                bytes += '\n';
                break;
            case 't':
                bytes += '\t';
                break;
            case '\\':
            case '"':
                bytes += text[i];
                break;
            case 'x':
                bytes += hexEscaped(text.substr(i + 1, 2));
                i += 2;
                break;
            default:
                throw std::invalid_argument(std::string("unknown escape \\") + text[i]);
        }
    }
    return bytes;
}

}  // namespace zolt_text
