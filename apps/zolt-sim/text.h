// Text and bytes: how bytes are written in traces and read from controls.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace sim {

using Bytes = std::vector<std::uint8_t>;

// "0A": two upper-case digits.
std::string hexByte(std::uint8_t byte);

// "0A FF": every byte, one blank between two.
std::string hexBytes(const Bytes& bytes);

// "E": one upper-case digit; only the low four bits count.
std::string hexDigit(std::uint8_t value);

// One hexadecimal digit, either case; nothing for any other text.
std::optional<std::uint8_t> parseHexDigit(std::string_view text);

// One or two hexadecimal digits, either case; nothing for any other text.
std::optional<std::uint8_t> parseHexByte(std::string_view text);

// Whole bytes of two digits each ("0aFF"); nothing for any other text or none at all.
std::optional<Bytes> parseHexBytes(std::string_view text);

// Decimal digits only, at most `largest`; nothing for any other text.
std::optional<unsigned> parseDecimal(std::string_view text, unsigned largest);

// The words between blanks and tabs.
std::vector<std::string> splitWords(std::string_view text);

// The text up to a '#', without the blanks and tabs at both ends.
std::string_view withoutComment(std::string_view line);

// The lines of a text; a carriage return before a line feed belongs to the line end.
std::vector<std::string> splitLines(std::string_view text);

// In double quotes; bytes that do not print, the quote and the backslash as \xNN.
std::string quoted(const Bytes& text);

}  // namespace sim
