#include "tests/support/text/text_escape.h"

#include <charconv>
#include <stdexcept>

namespace support {
namespace {

void appendEscaped(std::string& text, char byte) {
    constexpr std::string_view kHexDigits = "0123456789ABCDEF";
    switch (byte) {
        case '\r':
            text += "\\r";
            return;
        case '\n':
            text += "\\n";
            return;
        case '\t':
            text += "\\t";
            return;
        case '\\':
            text += "\\\\";
            return;
        default:
            break;
    }
    if (byte >= ' ' && byte <= '~') {
        text += byte;
        return;
    }
    const auto value = static_cast<unsigned char>(byte);
    text += "\\x";
    text += kHexDigits[value >> 4U];
    text += kHexDigits[value & 0x0FU];
}

char hexByte(std::string_view digits) {
    unsigned value = 0;
    const char* end = digits.data() + digits.size();
    const auto [stop, error] = std::from_chars(digits.data(), end, value, 16);
    if (digits.size() != 2 || error != std::errc() || stop != end) {
        throw std::invalid_argument("\\x needs two hexadecimal digits");
    }
    return static_cast<char>(value);
}

}  // namespace

std::string escapeBytes(std::string_view bytes) {
    std::string text;
    for (const char byte : bytes) {
        if (byte == '"') text += '\\';
        appendEscaped(text, byte);
    }
    return text;
}

std::string escapeLine(std::string_view text) {
    std::string line;
    for (const char byte : text) appendEscaped(line, byte);
    if (!line.empty() && line.back() == ' ') line.replace(line.size() - 1, 1, "\\x20");
    return line;
}

std::string unescapeBytes(std::string_view text) {
    std::string bytes;
    for (std::string_view::size_type i = 0; i < text.size(); ++i) {
        if (text[i] != '\\') {
            bytes += text[i];
            continue;
        }
        if (++i == text.size()) throw std::invalid_argument("text ends in a backslash");
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
                bytes += hexByte(text.substr(i + 1, 2));
                i += 2;
                break;
            default:
                throw std::invalid_argument(std::string("unknown escape \\") + text[i]);
        }
    }
    return bytes;
}

}  // namespace support
