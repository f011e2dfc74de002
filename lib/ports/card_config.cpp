#include "lib/ports/card_config.h"

#include <algorithm>
#include <array>

#include "lib/ports/replies.h"
#include "lib/text/hexadecimal.h"

namespace zolt_ports {
namespace {

constexpr std::array kRows{
    CardConfigRow{CardConfig::kSetLcdSelfTest, CardKind::kLcd, "LCDSELFTEST:%a=%s",
                  "CIA: SELFTEST STATE IS SET TO %s at address %a", nullptr},
    CardConfigRow{CardConfig::kSetLcdLight, CardKind::kLcd, "LCDINITLIGHT:%a=%s",
                  "CIA: INITLIGHT STATE IS SET TO %s at address %a", nullptr},
    CardConfigRow{CardConfig::kSetMask, CardKind::kAnalogueInput, "SETANMASK:%a=%v",
                  "CIA: Channel MASK of the card is SET", "AMS:0x%a:0x%v"},
    CardConfigRow{CardConfig::kGetMask, CardKind::kAnalogueInput, "GETANMASK:%a",
                  "CIA: MASK is GOT from card", "AMV:0x%a:0x%v"},
    CardConfigRow{CardConfig::kStoreMask, CardKind::kAnalogueInput, "STOREANMASK:%a",
                  "CIA: MASK IS STORED at address %a", nullptr},
    CardConfigRow{CardConfig::kSetServoEnd, CardKind::kServo, "SETSC%e%c:%a=%v",
                  "CIA: SERVO PARAM of the card is SET", "SPS:0x%a:SC%e%c:0x%v"},
    CardConfigRow{CardConfig::kGetServoEnd, CardKind::kServo, "GETSC%e%c:%a",
                  "CIA: SERVO PARAM is GOT from card", "SPG:0x%a:SC%e%c:0x%v"},
    CardConfigRow{CardConfig::kStorePositions, CardKind::kServo, "STORESRVPOS:%a",
                  "CIA: POSITIONS ARE STORED at address %a", nullptr},
    CardConfigRow{CardConfig::kRestorePositions, CardKind::kServo, "MOVESTRPOS:%a",
                  "CIA: SERVOS ARE MOVED TO STORED POSITIONS at address %a", nullptr},
    CardConfigRow{CardConfig::kSetSilentRange, CardKind::kMotor, "SETMSR%c:%a=%v",
                  "CIA: MSR value of the card is SET", "MPS:0x%a:MSR%c:0x%v"},
    CardConfigRow{CardConfig::kGetSilentRange, CardKind::kMotor, "GETMSR%c:%a",
                  "CIA: MSR value is GOT from card", "MSR%c:0x%a:0x%v"},
    CardConfigRow{CardConfig::kStoreSilentRanges, CardKind::kMotor, "STOREMSRS:%a",
                  "CIA: MSR values are STORED at address %a", nullptr},
    CardConfigRow{CardConfig::kReboot, std::nullopt, "REBOOT:%a", "CIA: Card is REBOOTED",
                  "RBT:0x%a:OK"},
};

std::string fieldText(char letter, const CardFields& fields) {
    switch (letter) {
        case 'a':
            return {fields.address};
        case 'e':
            return {fields.end.value_or('A')};
        case 'c':
            return {fields.channel.value_or('0')};
        case 's':
            return fields.on.value_or(false) ? "ON" : "OFF";
        case 'o':
            return fields.on.value_or(false) ? "on" : "off";
        default:
            return zolt_text::hexByte(fields.value.value_or(0));
    }
}

/// The value at the end of a result line. The daemon widens a mask from 80 on with its
/// sign, to eight digits.
std::optional<std::uint8_t> valueOf(std::string_view digits) {
    constexpr std::string_view kWidened = "FFFFFF";
    if (digits.starts_with(kWidened)) {
        digits.remove_prefix(kWidened.size());
    }
    return digits.size() == 2 ? zolt_text::parseHexByte(digits) : std::nullopt;
}

}  // namespace

std::span<const CardConfigRow> cardConfigRows() {
    return kRows;
}

const CardConfigRow& rowOf(CardConfig command) {
    return *std::find_if(kRows.begin(), kRows.end(),
                         [command](const CardConfigRow& row) { return row.command == command; });
}

std::string filledIn(std::string_view pattern, const CardFields& fields) {
    std::string text;
    for (std::size_t i = 0; i < pattern.size(); ++i) {
        if (pattern[i] == '%' && i + 1 < pattern.size()) {
            text += fieldText(pattern[++i], fields);
        } else {
            text += pattern[i];
        }
    }
    return text;
}

std::string lineOf(CardConfig command, const CardFields& fields) {
    return filledIn(rowOf(command).line, fields);
}

CardFields parseConfigReply(CardConfig command, const CardFields& fields, const Reply& reply) {
    const CardConfigRow& row = rowOf(command);
    const std::string line = filledIn(row.line, fields);
    expectAccepted(reply, line);
    const std::size_t lines = row.result == nullptr ? 1 : 2;
    if (reply.lines.size() != lines || reply.lines[0] != filledIn(row.success, fields)) {
        throw foreignReply(reply, line);
    }
    CardFields reported = fields;
    if (row.result == nullptr) {
        return reported;
    }
    const std::string& result = reply.lines[1];
    const std::string_view pattern = row.result;
    const std::size_t value = pattern.find("%v");
    if (value == std::string_view::npos) {
        if (result != filledIn(pattern, fields)) {
            throw foreignReply(reply, line);
        }
        return reported;
    }
    const std::string start = filledIn(pattern.substr(0, value), fields);
    reported.value = result.starts_with(start)
                         ? valueOf(std::string_view(result).substr(start.size()))
                         : std::nullopt;
    if (!reported.value || (fields.value && *fields.value != *reported.value)) {
        throw foreignReply(reply, line);
    }
    return reported;
}

}  // namespace zolt_ports
