#pragma once

#include <string>
#include <string_view>

namespace support {

/// Writes bytes for a text in quotation marks: as zolt_text::escape(), with a quotation
/// mark as \". zolt_text::unescape() reads both forms back.
std::string escapeBytes(std::string_view bytes);

/// Writes bytes for a text that is alone on its line: as zolt_text::escape(), with a blank
/// at the end as \x20, so that a reader sees it.
std::string escapeLine(std::string_view text);

}  // namespace support
