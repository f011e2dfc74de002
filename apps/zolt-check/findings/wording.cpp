#include "apps/zolt-check/findings/wording.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <limits>

#include "core/speed.h"
#include "lib/text/escape.h"
#include "lib/text/printable.h"

namespace zolt_check {
namespace {

constexpr std::string_view kBlanks = " \t\n\v\f\r";

}  // namespace

std::string shownSeparator(std::string_view separator) {
    return '"' + zolt_text::escape(separator) + '"';
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
        return "it is not a number";
    }
    if (typed.find_first_not_of(kBlanks, end) != std::string::npos) {
        return "the text after the number is ignored";
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
    return label + " " + zolt_text::quote(typed) + " (counts as " + std::to_string(number) + ")";
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

}  // namespace zolt_check
