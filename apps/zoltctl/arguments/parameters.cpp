#include "apps/zoltctl/arguments/parameters.h"

#include <algorithm>
#include <array>

#include "lib/ports/card_kind.h"
#include "lib/ports/io_lines.h"
#include "lib/text/decimal.h"
#include "lib/text/hexadecimal.h"

namespace zoltctl {

using zolt_ports::CardKind;
using zolt_ports::kLcdTextLimit;
using zolt_ports::kStreamLimit;
using zolt_text::hexByte;
using zolt_text::hexDigit;
using zolt_text::parseDecimal;
using zolt_text::parseHexByte;
using zolt_text::parseHexDigit;

namespace {

constexpr std::uint8_t kHighestByte = 0xFF;
constexpr unsigned kHighestPercent = 100;

std::uint8_t highestSetting(CardKind kind) {
    return zolt_ports::rowOf(kind).highestSetting;
}

unsigned lastChannel(CardKind kind) {
    return zolt_ports::rowOf(kind).channels - 1;
}

std::string valueForm(std::uint8_t highest) {
    return "hexadecimal 00 to " + hexByte(highest);
}

std::string channelForm(CardKind kind) {
    return "0 to " + std::to_string(lastChannel(kind));
}

bool readAddress(const std::string& word, Fields& fields) {
    const auto digit = parseHexDigit(word);
    if (!digit) {
        return false;
    }
    // The daemon takes a lower-case letter for 0.
    fields.addresses += hexDigit(*digit);
    fields.card.address = fields.addresses[0];
    return true;
}

bool readBlock(const std::string& word, Fields& fields) {
    const auto digit = parseHexDigit(word);
    fields.block = digit;
    return digit.has_value();
}

bool readValue(const std::string& word, std::uint8_t highest, Fields& fields) {
    fields.card.value = parseHexByte(word);
    return fields.card.value && *fields.card.value <= highest;
}

bool readByte(const std::string& word, Fields& fields) {
    return readValue(word, kHighestByte, fields);
}

bool readMask(const std::string& word, Fields& fields) {
    return readValue(word, highestSetting(CardKind::kAnalogueInput), fields);
}

bool readRange(const std::string& word, Fields& fields) {
    return readValue(word, highestSetting(CardKind::kMotor), fields);
}

bool readChannel(const std::string& word, CardKind kind, Fields& fields) {
    const auto number = word.size() == 1 ? parseDecimal(word, lastChannel(kind)) : std::nullopt;
    if (!number) {
        return false;
    }
    fields.card.channel = word[0];
    return true;
}

bool readServo(const std::string& word, Fields& fields) {
    return readChannel(word, CardKind::kServo, fields);
}

bool readMotor(const std::string& word, Fields& fields) {
    return readChannel(word, CardKind::kMotor, fields);
}

bool readState(const std::string& word, Fields& fields) {
    if (word != "on" && word != "off") {
        return false;
    }
    fields.card.on = word == "on";
    return true;
}

bool readEnd(const std::string& word, Fields& fields) {
    constexpr std::string_view kEnds = "AaBb";
    const std::size_t at = word.size() == 1 ? kEnds.find(word[0]) : std::string_view::npos;
    if (at == std::string_view::npos) {
        return false;
    }
    fields.card.end = at < 2 ? 'A' : 'B';
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

bool readColumn(const std::string& word, Fields& fields) {
    return readPlace(word, fields.column);
}

bool readRow(const std::string& word, Fields& fields) {
    return readPlace(word, fields.row);
}

bool readLcdText(const std::string& word, Fields& fields) {
    fields.text = word;
    return word.size() <= kLcdTextLimit;
}

bool readStream(const std::string& word, Fields& fields) {
    const auto bytes = zolt_text::parseHexBytes(word);
    if (!bytes || bytes->size() > kStreamLimit) {
        return false;
    }
    fields.text.clear();
    for (const std::uint8_t byte : *bytes) {
        fields.text += hexByte(byte);
    }
    return true;
}

bool readPercent(const std::string& word, Fields& fields) {
    const auto percent = parseDecimal(word, kHighestPercent);
    fields.text = std::to_string(percent.value_or(0));
    return percent.value_or(0) > 0;
}

bool readLine(const std::string& word, Fields& fields) {
    fields.text = word;
    return true;
}

const std::array<Parameter, 16>& parameters() {
    static const std::array<Parameter, 16> rows{{
        {"ADDRESS", "an address", "one digit, 0 to F", readAddress},
        {"BLOCK", "a block", "one digit, 0 to F", readBlock},
        {"DATA", "a value for a block", valueForm(kHighestByte), readByte},
        {"VALUE", "a value", valueForm(kHighestByte), readByte},
        {"MASK", "a mask", valueForm(highestSetting(CardKind::kAnalogueInput)), readMask},
        {"RANGE", "a silent range", valueForm(highestSetting(CardKind::kMotor)), readRange},
        {"STATE", "a state", "on or off", readState},
        {"END", "an end", "A or B", readEnd},
        {"SERVO", "a servo channel", channelForm(CardKind::kServo), readServo},
        {"MOTOR", "a motor channel", channelForm(CardKind::kMotor), readMotor},
        {"COLUMN", "a column", "0 to 255", readColumn},
        {"ROW", "a row", "0 to 255", readRow},
        {"TEXT", "a text for an LCD", "at most " + std::to_string(kLcdTextLimit) + " bytes",
         readLcdText},
        {"HEX", "an IR stream",
         "1 to " + std::to_string(kStreamLimit) + " pairs of hexadecimal digits", readStream},
        {"PERCENT", "a percentage", "a number from 1 to 100", readPercent},
        {"LINE", "a line", "any text", readLine},
    }};
    return rows;
}

}  // namespace

const Parameter* parameterOf(std::string_view name) {
    const auto& rows = parameters();
    const auto* row = std::find_if(rows.begin(), rows.end(),
                                   [&](const Parameter& entry) { return entry.name == name; });
    return row == rows.end() ? nullptr : row;
}

}  // namespace zoltctl
