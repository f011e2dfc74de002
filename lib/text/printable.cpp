#include "lib/text/printable.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "lib/text/escape.h"

namespace zolt_text {
namespace {

constexpr std::size_t kQuoteLimit = 60;

/// The number of bytes of the character at the start of `text`; 0 if the text starts
/// with a control character or with a byte that is not UTF-8.
std::size_t shownLength(std::string_view text) {
    struct Form {
        unsigned char mask;
        unsigned char lead;
        unsigned first;  ///< the smallest character of this length that is shown
    };
    // U+0080 to U+009F are control characters for a terminal as well.
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

/// The start of the character that a cut at `at` would divide; `at` if it divides none.
std::size_t startOfCharacter(std::string_view text, std::size_t at) {
    constexpr std::size_t kLongest = 4;
    for (std::size_t start = at - std::min(at, kLongest - 1); start < at; ++start) {
        if (start + shownLength(text.substr(start)) > at) {
            return start;
        }
    }
    return at;
}

}  // namespace

std::string printable(std::string_view text) {
    std::string result;
    while (!text.empty()) {
        const std::size_t length = shownLength(text);
        if (length == 0) {
            result += escapeOf(text[0]);
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
    return '"' + printable(text.substr(0, startOfCharacter(text, kQuoteLimit))) + "...\"";
}

}  // namespace zolt_text
