#include "apps/zoltctl/output/text.h"

#include <array>
#include <charconv>

namespace ctl {
namespace {

constexpr std::string_view kDigits = "0123456789ABCDEF";

/// Longer texts are cut in an error line.
constexpr std::size_t kQuoteLimit = 60;

std::string escaped(char byte) {
    switch (byte) {
        case '\r':
            return "\\r";
        case '\n':
            return "\\n";
        case '\t':
            return "\\t";
        default:
            return "\\x" + hexByte(static_cast<std::uint8_t>(byte));
    }
}

/// How many bytes at the start are one character that may be shown: 0 for a control
/// character and for what is no UTF-8.
std::size_t shownLength(std::string_view text) {
    struct Form {
        unsigned char mask;
        unsigned char lead;
        unsigned first;  ///< smallest number of this length that may be shown
    };
    // The 32 control characters from 80 on would steer a terminal, too.
    constexpr std::array kForms{Form{0x80, 0x00, 0x20}, Form{0xE0, 0xC0, 0xA0},
                                Form{0xF0, 0xE0, 0x800}, Form{0xF8, 0xF0, 0x10000}};
    const auto lead = static_cast<unsigned char>(text[0]);
    for (std::size_t i = 0; i < kForms.size(); ++i) {
        const Form& form = kForms[i];
        if ((lead & form.mask) != form.lead || text.size() <= i) {
            continue;
        }
        unsigned number = lead & static_cast<unsigned char>(~form.mask);
        for (std::size_t n = 1; n <= i; ++n) {
            const auto next = static_cast<unsigned char>(text[n]);
            if ((next & 0xC0U) != 0x80U) {
                return 0;
            }
            number = number << 6U | (next & 0x3FU);
        }
        const bool surrogate = number >= 0xD800 && number <= 0xDFFF;
        return number < form.first || number == 0x7F || surrogate || number > 0x10FFFF ? 0 : i + 1;
    }
    return 0;
}

}  // namespace

std::string printable(std::string_view text) {
    std::string result;
    while (!text.empty()) {
        const std::size_t length = shownLength(text);
        if (length == 0) {
            result += escaped(text[0]);
            text.remove_prefix(1);
        } else {
            result += text.substr(0, length);
            text.remove_prefix(length);
        }
    }
    return result;
}

std::string quote(std::string_view text) {
    if (text.size() <= kQuoteLimit) {
        return '"' + printable(text) + '"';
    }
    return '"' + printable(text.substr(0, kQuoteLimit)) + "...\"";
}

std::optional<unsigned> hexDigit(char digit) {
    if (digit >= '0' && digit <= '9') {
        return static_cast<unsigned>(digit - '0');
    }
    if (digit >= 'A' && digit <= 'F') {
        return static_cast<unsigned>(digit - 'A' + 10);
    }
    if (digit >= 'a' && digit <= 'f') {
        return static_cast<unsigned>(digit - 'a' + 10);
    }
    return std::nullopt;
}

std::string hexByte(std::uint8_t value) {
    return {kDigits[value / 16U], kDigits[value % 16U]};
}

std::optional<std::uint8_t> parseHexByte(std::string_view text) {
    if (text.empty() || text.size() > 2) {
        return std::nullopt;
    }
    unsigned value = 0;
    for (const char digit : text) {
        const auto number = hexDigit(digit);
        if (!number) {
            return std::nullopt;
        }
        value = value * 16 + *number;
    }
    return static_cast<std::uint8_t>(value);
}

std::optional<unsigned> parseDecimal(std::string_view text, unsigned limit) {
    unsigned value = 0;
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, value);
    if (error != std::errc() || stop != end || value > limit) {
        return std::nullopt;
    }
    return value;
}

std::optional<double> parsePositive(std::string_view text, double limit) {
    double value = 0;
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, value);
    // Not a number compares false.
    if (error != std::errc() || stop != end || !(value > 0 && value <= limit)) {
        return std::nullopt;
    }
    return value;
}

std::string upperCase(std::string_view text) {
    std::string result(text);
    for (char& letter : result) {
        if (letter >= 'a' && letter <= 'z') {
            letter = static_cast<char>(letter - 'a' + 'A');
        }
    }
    return result;
}

std::string withControls(std::string_view text) {
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const std::string_view pair = text.substr(i, 2);
        if (pair == "\\r" || pair == "\\n") {
            result += pair == "\\r" ? '\r' : '\n';
            ++i;
        } else {
            result += text[i];
        }
    }
    return result;
}

bool startsWith(std::string_view text, std::string_view start) {
    return text.substr(0, start.size()) == start;
}

}  // namespace ctl
