#pragma once

#include <optional>
#include <string_view>

namespace zolt_text {

/// A number of decimal digits alone, at most `limit`; nothing for any other text.
std::optional<unsigned> parseDecimal(std::string_view text, unsigned limit);

/// A number above 0 and at most `limit`, with or without a fraction ("0.5"); nothing
/// for any other text.
std::optional<double> parsePositive(std::string_view text, double limit);

}  // namespace zolt_text
