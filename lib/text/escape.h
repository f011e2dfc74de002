#pragma once

#include <string>
#include <string_view>

namespace zolt_text {

/// "\x0A": a byte as an escape of two upper-case digits.
std::string hexEscape(char byte);

/// A byte as an escape: \r, \n and \t by these names, every other byte as \xNN.
std::string escapeOf(char byte);

/// Writes bytes so that every one can be read back from the text: printable ASCII as it
/// is, \r, \n and \t by these names, a backslash as \\, every other byte as \xNN.
std::string escape(std::string_view bytes);

/// The bytes of an escaped text; \" is a quotation mark. Throws std::invalid_argument
/// for an unknown or an incomplete escape.
std::string unescape(std::string_view text);

}  // namespace zolt_text
