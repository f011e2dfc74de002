#include "tests/support/text/time_stamp.h"

#include <cstddef>
#include <string_view>

namespace support {
namespace {

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

bool fits(char character, char shape) {
    switch (shape) {
        case '0':
            return isDigit(character);
        case '_':
            return isDigit(character) || character == ' ';
        case 'A':
            return character >= 'A' && character <= 'Z';
        case 'a':
            return character >= 'a' && character <= 'z';
        default:
            return character == shape;
    }
}

// True if the text has this shape from `start` on. In the shape 0 is a digit, _ a digit or a
// blank, A and a are letters; any other character is itself.
bool hasShape(std::string_view text, std::size_t start, std::string_view shape) {
    if (text.size() < start + shape.size()) return false;
    for (std::size_t i = 0; i < shape.size(); ++i) {
        if (!fits(text[start + i], shape[i])) return false;
    }
    return true;
}

}  // namespace

std::string withoutLogTime(const std::string& line) {
    constexpr std::string_view kShape = "0000-00-00 00:00:00 ";
    return hasShape(line, 0, kShape) ? line.substr(kShape.size()) : line;
}

std::string withoutSystemLogTime(const std::string& message) {
    constexpr std::string_view kShape = "Aaa _0 00:00:00 ";
    const auto start = message.find('>') + 1;
    if (!hasShape(message, start, kShape)) return message;
    return message.substr(0, start) + message.substr(start + kShape.size());
}

}  // namespace support
