#pragma once

#include <string>
#include <string_view>

namespace zolt_text {

/// Writes control characters and bytes that are not UTF-8 as \r, \n, \t or \xNN, so
/// that no text from elsewhere can steer a terminal. A backslash stays as it is, so
/// the result is for people and cannot be read back.
std::string printable(std::string_view text);

/// The printable text in quotation marks. Of a text longer than 60 bytes the whole
/// characters within the first 60 are shown, with "..." after them.
std::string quote(std::string_view text);

}  // namespace zolt_text
