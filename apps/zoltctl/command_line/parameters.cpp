#include "apps/zoltctl/command_line/parameters.h"

#include <algorithm>
#include <array>

#include "apps/zoltctl/output/text.h"

namespace ctl {
namespace {

constexpr std::uint8_t kHighestMask = 0x3F;
constexpr std::uint8_t kHighestRange = 0x20;
constexpr std::uint8_t kHighestByte = 0xFF;
constexpr unsigned kHighestPercent = 100;

/// What the daemon's frames hold.
constexpr std::size_t kLcdText = 31;
constexpr std::size_t kStreamBytes = 34;

bool readDigit(const std::string& word, std::string& digits) {
    if (word.size() != 1 || !hexDigit(word[0])) {
        return false;
    }
    // The daemon takes a lower-case letter for 0.
    digits += upperCase(word);
    return true;
}

template <std::uint8_t highest>
bool readValue(const std::string& word, Fields& fields) {
    fields.value = parseHexByte(word);
    return fields.value && *fields.value <= highest;
}

template <char highest>
bool readChannel(const std::string& word, Fields& fields) {
    if (word.size() != 1 || word[0] < '0' || word[0] > highest) {
        return false;
    }
    fields.channel = word[0];
    return true;
}

bool readBlock(const std::string& word, Fields& fields) {
    std::string digit;
    if (!readDigit(word, digit)) {
        return false;
    }
    fields.block = digit[0];
    return true;
}

bool readStream(const std::string& word, Fields& fields) {
    fields.text = upperCase(word);
    return !word.empty() && word.size() % 2 == 0 && word.size() <= 2 * kStreamBytes &&
           std::all_of(word.begin(), word.end(),
                       [](char digit) { return hexDigit(digit).has_value(); });
}

bool readPercent(const std::string& word, Fields& fields) {
    const auto percent = parseDecimal(word, kHighestPercent);
    fields.text = std::to_string(percent.value_or(0));
    return percent.value_or(0) > 0;
}

bool readEnd(const std::string& word, Fields& fields) {
    const std::string end = upperCase(word);
    if (end != "A" && end != "B") {
        return false;
    }
    fields.end = end[0];
    return true;
}

bool readState(const std::string& word, Fields& fields) {
    if (word != "on" && word != "off") {
        return false;
    }
    fields.on = word == "on";
    return true;
}

bool readPlace(const std::string& word, std::optional<std::uint8_t>& place) {
    const auto number = parseDecimal(word, kHighestByte);
    if (!number) {
        return false;
    }
    place = static_cast<std::uint8_t>(*number);
    return true;
}

constexpr std::array kParameters{
    Parameter{
        "ADDRESS", "address: one digit 0 to F",
        [](const std::string& word, Fields& fields) { return readDigit(word, fields.addresses); }},
    Parameter{"BLOCK", "block: one digit 0 to F", readBlock},
    Parameter{"DATA", "data: hexadecimal 00 to FF", readValue<kHighestByte>},
    Parameter{"VALUE", "value: hexadecimal 00 to FF", readValue<kHighestByte>},
    Parameter{"MASK", "mask: hexadecimal 00 to 3F", readValue<kHighestMask>},
    Parameter{"RANGE", "silent range: hexadecimal 00 to 20", readValue<kHighestRange>},
    Parameter{"STATE", "state: on or off", readState},
    Parameter{"END", "end: A or B", readEnd},
    Parameter{"SERVO", "servo channel: 0 to 5", readChannel<'5'>},
    Parameter{"MOTOR", "motor channel: 0 to 2", readChannel<'2'>},
    Parameter{
        "COLUMN", "column: 0 to 255",
        [](const std::string& word, Fields& fields) { return readPlace(word, fields.column); }},
    Parameter{"ROW", "row: 0 to 255",
              [](const std::string& word, Fields& fields) { return readPlace(word, fields.row); }},
    Parameter{"TEXT", "text for an LCD: at most 31 bytes",
              [](const std::string& word, Fields& fields) {
                  fields.text = word;
                  return word.size() <= kLcdText;
              }},
    Parameter{"HEX", "IR stream: 1 to 34 pairs of hexadecimal digits", readStream},
    Parameter{"PERCENT", "percentage: a number from 1 to 100", readPercent},
    Parameter{"LINE", "line",
              [](const std::string& word, Fields& fields) {
                  fields.text = word;
                  return true;
              }},
};

}  // namespace

const Parameter* parameterOf(std::string_view name) {
    const auto* row = std::find_if(kParameters.begin(), kParameters.end(),
                                   [&](const Parameter& entry) { return entry.name == name; });
    return row == kParameters.end() ? nullptr : row;
}

}  // namespace ctl
