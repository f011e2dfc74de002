#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

/// Numbers, bytes and readable text: what the programs in apps/ and the tests write and
/// read in the same way.
namespace zolt_text {

/// One upper-case digit; only the low four bits of `value` count.
std::string hexDigit(unsigned value);

/// Two upper-case digits.
std::string hexByte(std::uint8_t value);

/// "0A FF": all bytes, with one blank between two of them.
std::string hexBytes(std::span<const std::uint8_t> bytes);

/// 0 to 15 for a digit of either case; nothing for any other character.
std::optional<std::uint8_t> parseHexDigit(char digit);

/// The same of a text of one digit; nothing for any other text.
std::optional<std::uint8_t> parseHexDigit(std::string_view text);

/// A number of one or two digits; nothing for any other text.
std::optional<std::uint8_t> parseHexByte(std::string_view text);

/// Bytes of two digits each without anything between them ("0aFF"); nothing for any
/// other text and for an empty one.
std::optional<std::vector<std::uint8_t>> parseHexBytes(std::string_view text);

}  // namespace zolt_text
