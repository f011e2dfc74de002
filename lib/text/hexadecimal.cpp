#include "lib/text/hexadecimal.h"

namespace zolt_text {
namespace {

char digitOf(unsigned value) {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    return kDigits[value & 0x0FU];
}

}  // namespace

std::string hexDigit(unsigned value) {
    return {digitOf(value)};
}

std::string hexByte(std::uint8_t value) {
    return {digitOf(value >> 4U), digitOf(value)};
}

std::string hexBytes(std::span<const std::uint8_t> bytes) {
    std::string text;
    for (const std::uint8_t byte : bytes) {
        if (!text.empty()) {
            text += ' ';
        }
        text += hexByte(byte);
    }
    return text;
}

std::optional<std::uint8_t> parseHexDigit(char digit) {
    if (digit >= '0' && digit <= '9') {
        return static_cast<std::uint8_t>(digit - '0');
    }
    if (digit >= 'A' && digit <= 'F') {
        return static_cast<std::uint8_t>(digit - 'A' + 10);
    }
    if (digit >= 'a' && digit <= 'f') {
        return static_cast<std::uint8_t>(digit - 'a' + 10);
    }
    return std::nullopt;
}

std::optional<std::uint8_t> parseHexDigit(std::string_view text) {
    return text.size() == 1 ? parseHexDigit(text[0]) : std::nullopt;
}

std::optional<std::uint8_t> parseHexByte(std::string_view text) {
    if (text.empty() || text.size() > 2) {
        return std::nullopt;
    }
    unsigned value = 0;
    for (const char character : text) {
        const auto digit = parseHexDigit(character);
        if (!digit) {
            return std::nullopt;
        }
        value = value * 16 + *digit;
    }
    return static_cast<std::uint8_t>(value);
}

std::optional<std::vector<std::uint8_t>> parseHexBytes(std::string_view text) {
    if (text.empty() || text.size() % 2 != 0) {
        return std::nullopt;
    }
    std::vector<std::uint8_t> bytes;
    for (std::size_t i = 0; i < text.size(); i += 2) {
        const auto byte = parseHexByte(text.substr(i, 2));
        if (!byte) {
            return std::nullopt;
        }
        bytes.push_back(*byte);
    }
    return bytes;
}

}  // namespace zolt_text
