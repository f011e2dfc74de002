#include "lib/text/decimal.h"

#include <charconv>
#include <system_error>

namespace zolt_text {
namespace {

/// The number that the whole text is; nothing when a character is left over.
template <typename Number>
std::optional<Number> parseWhole(std::string_view text) {
    Number value{};
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, value);
    if (error != std::errc() || stop != end) {
        return std::nullopt;
    }
    return value;
}

}  // namespace

std::optional<unsigned> parseDecimal(std::string_view text, unsigned limit) {
    const auto value = parseWhole<unsigned>(text);
    return value && *value <= limit ? value : std::nullopt;
}

std::optional<double> parsePositive(std::string_view text, double limit) {
    const auto value = parseWhole<double>(text);
    // "nan" is a number to from_chars; each comparison with it is false.
    return value && *value > 0 && *value <= limit ? value : std::nullopt;
}

}  // namespace zolt_text
