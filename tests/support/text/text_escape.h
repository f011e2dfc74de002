#pragma once

#include <string>
#include <string_view>

namespace support {

/// Writes bytes in readable form: printable ASCII as it stands, the others as
/// \r, \n, \t or \xHH, a backslash as \\ and a quotation mark as \".
std::string escapeBytes(std::string_view bytes);

/// As escapeBytes, for text that stands alone on its line: quotation marks stay,
/// and a blank at the end, which nobody would see, is written as \x20.
std::string escapeLine(std::string_view text);

/// The reverse of both; throws std::invalid_argument on an unknown or
/// incomplete escape.
std::string unescapeBytes(std::string_view text);

}  // namespace support
