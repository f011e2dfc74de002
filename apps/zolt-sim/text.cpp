#include "apps/zolt-sim/text.h"

namespace sim {
namespace {

constexpr char kDigits[] = "0123456789ABCDEF";

std::string_view trimmed(std::string_view text) {
    constexpr std::string_view kBlanks = " \t\r";
    const std::size_t first = text.find_first_not_of(kBlanks);
    if (first == std::string_view::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

}  // namespace

std::string hexByte(std::uint8_t byte) {
    return {kDigits[byte >> 4U], kDigits[byte & 0x0FU]};
}

std::string hexBytes(const Bytes& bytes) {
    std::string text;
    for (const std::uint8_t byte : bytes) {
        if (!text.empty()) {
            text += ' ';
        }
        text += hexByte(byte);
    }
    return text;
}

std::string hexDigit(std::uint8_t value) {
    return std::string(1, kDigits[value & 0x0FU]);
}

std::optional<std::uint8_t> parseHexDigit(std::string_view text) {
    if (text.size() != 1) {
        return std::nullopt;
    }
    const char c = text.front();
    if (c >= '0' && c <= '9') {
        return static_cast<std::uint8_t>(c - '0');
    }
    if (c >= 'A' && c <= 'F') {
        return static_cast<std::uint8_t>(c - 'A' + 10);
    }
    if (c >= 'a' && c <= 'f') {
        return static_cast<std::uint8_t>(c - 'a' + 10);
    }
    return std::nullopt;
}

std::optional<std::uint8_t> parseHexByte(std::string_view text) {
    if (text.empty() || text.size() > 2) {
        return std::nullopt;
    }
    unsigned value = 0;
    for (const char c : text) {
        const auto digit = parseHexDigit({&c, 1});
        if (!digit) {
            return std::nullopt;
        }
        value = value * 16 + *digit;
    }
    return static_cast<std::uint8_t>(value);
}

std::optional<Bytes> parseHexBytes(std::string_view text) {
    if (text.empty() || text.size() % 2 != 0) {
        return std::nullopt;
    }
    Bytes bytes;
    for (std::size_t i = 0; i < text.size(); i += 2) {
        const auto byte = parseHexByte(text.substr(i, 2));
        if (!byte) {
            return std::nullopt;
        }
        bytes.push_back(*byte);
    }
    return bytes;
}

std::optional<unsigned> parseDecimal(std::string_view text, unsigned largest) {
    if (text.empty()) {
        return std::nullopt;
    }
    unsigned long long value = 0;
    for (const char c : text) {
        if (c < '0' || c > '9') {
            return std::nullopt;
        }
        value = value * 10 + static_cast<unsigned>(c - '0');
        if (value > largest) {
            return std::nullopt;
        }
    }
    return static_cast<unsigned>(value);
}

std::vector<std::string> splitWords(std::string_view text) {
    constexpr std::string_view kBlanks = " \t\r";
    std::vector<std::string> words;
    std::size_t begin = text.find_first_not_of(kBlanks);
    while (begin != std::string_view::npos) {
        const std::size_t end = text.find_first_of(kBlanks, begin);
        words.emplace_back(text.substr(begin, end - begin));
        begin = text.find_first_not_of(kBlanks, end);
    }
    return words;
}

std::string_view withoutComment(std::string_view line) {
    return trimmed(line.substr(0, line.find('#')));
}

std::vector<std::string> splitLines(std::string_view text) {
    std::vector<std::string> lines;
    while (!text.empty()) {
        const std::size_t end = text.find('\n');
        std::string_view line = text.substr(0, end);
        if (!line.empty() && line.back() == '\r') {
            line.remove_suffix(1);
        }
        lines.emplace_back(line);
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    }
    return lines;
}

std::string quoted(const Bytes& text) {
    std::string result = "\"";
    for (const std::uint8_t byte : text) {
        if (byte >= 0x20 && byte < 0x7F && byte != '"' && byte != '\\') {
            result += static_cast<char>(byte);
        } else {
            result += "\\x" + hexByte(byte);
        }
    }
    return result + '"';
}

}  // namespace sim
