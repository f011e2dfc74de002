#include "apps/zolt-check/wording.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cmath>
#include <limits>

#include "core/speed.h"

namespace check {
namespace {

constexpr std::size_t kQuotedLimit = 80;
constexpr std::string_view kBlanks = " \t\n\v\f\r";

bool isControl(char character) {
    const auto byte = static_cast<unsigned char>(character);
    return byte < 0x20 || byte == 0x7F;
}

std::string inHex(char character) {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    const auto byte = static_cast<unsigned char>(character);
    return {'\\', 'x', kDigits[byte / 16], kDigits[byte % 16]};
}

struct Escape {
    char character;
    const char* shown;
};

constexpr std::array kEscapes{Escape{'\r', "\\r"}, Escape{'\n', "\\n"}, Escape{'\t', "\\t"},
                              Escape{'\\', "\\\\"}};

std::string shownCharacter(char character) {
    for (const Escape& escape : kEscapes) {
        if (escape.character == character) {
            return escape.shown;
        }
    }
    return isControl(character) ? inHex(character) : std::string(1, character);
}

bool continuesCharacter(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

}  // namespace

std::string inQuotes(std::string_view text) {
    std::size_t end = std::min(text.size(), kQuotedLimit);
    while (end > 0 && end < text.size() && continuesCharacter(text[end])) {
        --end;
    }
    std::string shown = "\"";
    for (const char character : text.substr(0, end)) {
        shown += isControl(character) ? inHex(character) : std::string(1, character);
    }
    return shown + (end < text.size() ? "...\"" : "\"");
}

std::string shownSeparator(std::string_view separator) {
    std::string shown = "\"";
    for (const char character : separator) {
        shown += shownCharacter(character);
    }
    return shown + "\"";
}

std::string whyCounted(const std::string& typed, long number) {
    const std::size_t start = typed.find_first_not_of(kBlanks);
    const std::size_t sign =
        start != std::string::npos &&
                std::string_view("+-").find(typed[start]) != std::string_view::npos
            ? 1
            : 0;
    std::size_t end = start == std::string::npos ? typed.size() : start + sign;
    const std::size_t digits = end;
    while (end < typed.size() && std::isdigit(static_cast<unsigned char>(typed[end])) != 0) {
        ++end;
    }
    if (end == digits) {
        return "it is no number";
    }
    if (typed.find_first_not_of(kBlanks, end) != std::string::npos) {
        return "what stands behind the number is ignored";
    }
    std::size_t first = typed.find_first_not_of('0', digits);
    first = std::min(first, end - 1);
    const std::string plain = (typed[start] == '-' ? "-" : "") + typed.substr(first, end - first);
    if (plain != std::to_string(number) && plain != "-0") {
        return "it is too large";
    }
    return "";
}

std::string asCounted(const std::string& label, const std::string& typed, long number) {
    if (whyCounted(typed, number).empty()) {
        return label + " " + std::to_string(number);
    }
    return label + " " + inQuotes(typed) + " (counts as " + std::to_string(number) + ")";
}

std::optional<long> percentOfDelay(std::int32_t delay) {
    using Limits = std::numeric_limits<std::int32_t>;
    if (delay == Limits::min() || delay == Limits::max()) {
        return std::nullopt;
    }
    return std::lround((500000.0 - 99.0 * delay) / 4999.0);
}

std::uint32_t pauseOf(std::int32_t delay) {
    return static_cast<std::uint32_t>(delay);
}

std::string pauseText(std::int32_t delay) {
    constexpr std::uint32_t kMicrosecondsPerMinute = 60'000'000;
    const std::uint32_t pause = pauseOf(delay);
    return pause < 2 * kMicrosecondsPerMinute
               ? std::to_string(pause) + " microseconds"
               : std::to_string(pause / kMicrosecondsPerMinute) + " minutes";
}

std::string inLine(ConfigPlace place) {
    return "line " + std::to_string(place.line);
}

}  // namespace check
