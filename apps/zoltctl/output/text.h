// Texts and digits.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace ctl {

/// With control characters and bytes that are no UTF-8 as \r, \n, \t or \xNN, so
/// that nothing a peer sends can steer a terminal.
std::string printable(std::string_view text);

/// Printable, in quotation marks, shortened when it is long: for error lines.
std::string quote(std::string_view text);

/// 0 to 15, or nothing.
std::optional<unsigned> hexDigit(char digit);

/// Two upper-case digits.
std::string hexByte(std::uint8_t value);

/// A number of one or two hexadecimal digits, nothing else.
std::optional<std::uint8_t> parseHexByte(std::string_view text);

/// A decimal number of digits alone, at most `limit`.
std::optional<unsigned> parseDecimal(std::string_view text, unsigned limit);

/// A positive number of at most `limit`, fractions allowed.
std::optional<double> parsePositive(std::string_view text, double limit);

std::string upperCase(std::string_view text);

/// With the two-character sequences \r and \n made characters, as in the
/// daemon's configuration.
std::string withControls(std::string_view text);

bool startsWith(std::string_view text, std::string_view start);

}  // namespace ctl
