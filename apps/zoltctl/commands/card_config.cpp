#include "apps/zoltctl/commands/card_config.h"

#include <array>
#include <nlohmann/json.hpp>

#include "apps/zoltctl/output/text.h"
#include "apps/zoltctl/ports/replies.h"

namespace ctl {
namespace {

constexpr std::array kRows{
    CardConfigRow{"lcd ADDRESS self-test STATE", "lcd self-test", "LCDSELFTEST:%a=%s",
                  "CIA: SELFTEST STATE IS SET TO %s at address %a", nullptr,
                  "card %a: self-test at start is %o"},
    CardConfigRow{"lcd ADDRESS light STATE", "lcd light", "LCDINITLIGHT:%a=%s",
                  "CIA: INITLIGHT STATE IS SET TO %s at address %a", nullptr,
                  "card %a: light at start is %o"},
    CardConfigRow{"analogue ADDRESS mask MASK", "analogue mask", "SETANMASK:%a=%v",
                  "CIA: Channel MASK of the card is SET", "AMS:0x%a:0x%v", "card %a: mask is %v"},
    CardConfigRow{"analogue ADDRESS mask", "analogue mask", "GETANMASK:%a",
                  "CIA: MASK is GOT from card", "AMV:0x%a:0x%v", "card %a: mask is %v"},
    CardConfigRow{"analogue ADDRESS store", "analogue store", "STOREANMASK:%a",
                  "CIA: MASK IS STORED at address %a", nullptr, "card %a: mask is stored"},
    CardConfigRow{"servo ADDRESS end END channel SERVO VALUE", "servo end", "SETSC%e%c:%a=%v",
                  "CIA: SERVO PARAM of the card is SET", "SPS:0x%a:SC%e%c:0x%v",
                  "card %a: servo end %e, channel %c is %v"},
    CardConfigRow{"servo ADDRESS end END channel SERVO", "servo end", "GETSC%e%c:%a",
                  "CIA: SERVO PARAM is GOT from card", "SPG:0x%a:SC%e%c:0x%v",
                  "card %a: servo end %e, channel %c is %v"},
    CardConfigRow{"servo ADDRESS store", "servo store", "STORESRVPOS:%a",
                  "CIA: POSITIONS ARE STORED at address %a", nullptr,
                  "card %a: positions are stored"},
    CardConfigRow{"servo ADDRESS restore", "servo restore", "MOVESTRPOS:%a",
                  "CIA: SERVOS ARE MOVED TO STORED POSITIONS at address %a", nullptr,
                  "card %a: servos are moved to the stored positions"},
    CardConfigRow{"motor ADDRESS silent-range MOTOR RANGE", "motor silent-range", "SETMSR%c:%a=%v",
                  "CIA: MSR value of the card is SET", "MPS:0x%a:MSR%c:0x%v",
                  "card %a: silent range of channel %c is %v"},
    CardConfigRow{"motor ADDRESS silent-range MOTOR", "motor silent-range", "GETMSR%c:%a",
                  "CIA: MSR value is GOT from card", "MSR%c:0x%a:0x%v",
                  "card %a: silent range of channel %c is %v"},
    CardConfigRow{"motor ADDRESS store", "motor store", "STOREMSRS:%a",
                  "CIA: MSR values are STORED at address %a", nullptr,
                  "card %a: silent ranges are stored"},
    CardConfigRow{"reboot ADDRESS", "reboot", "REBOOT:%a", "CIA: Card is REBOOTED", "RBT:0x%a:OK",
                  "card %a: rebooted"},
};

std::string fieldText(char letter, const Fields& fields) {
    switch (letter) {
        case 'a':
            return {fields.address()};
        case 'e':
            return {fields.end.value_or('A')};
        case 'c':
            return {fields.channel.value_or('0')};
        case 's':
            return fields.on.value_or(false) ? "ON" : "OFF";
        case 'o':
            return fields.on.value_or(false) ? "on" : "off";
        default:
            return hexByte(fields.value.value_or(0));
    }
}

/// The value at the end of a result line. A mask of 80 and more comes widened
/// with its sign, to eight digits.
std::optional<std::uint8_t> valueOf(std::string_view digits) {
    constexpr std::string_view kWidened = "FFFFFF";
    if (startsWith(digits, kWidened)) {
        digits.remove_prefix(kWidened.size());
    }
    return digits.size() == 2 ? parseHexByte(digits) : std::nullopt;
}

}  // namespace

std::span<const CardConfigRow> cardConfigRows() {
    return kRows;
}

std::string filledIn(const char* text, const Fields& fields) {
    std::string result;
    for (const char* at = text; *at != '\0'; ++at) {
        if (*at == '%') {
            result += fieldText(*++at, fields);
        } else {
            result += *at;
        }
    }
    return result;
}

Fields parseConfigReply(const CardConfigRow& row, const Fields& fields, const Reply& reply) {
    const std::string command = filledIn(row.command, fields);
    expectAccepted(reply, command);
    const std::size_t lines = row.result == nullptr ? 1 : 2;
    if (reply.lines.size() != lines || reply.lines[0] != filledIn(row.success, fields)) {
        throw foreignReply(reply, command);
    }
    Fields told = fields;
    if (row.result != nullptr) {
        const std::string pattern = row.result;
        const std::size_t value = pattern.find("%v");
        if (value != std::string::npos) {
            const std::string start = filledIn(pattern.substr(0, value).c_str(), fields);
            told.value = startsWith(reply.lines[1], start)
                             ? valueOf(std::string_view(reply.lines[1]).substr(start.size()))
                             : std::nullopt;
            if (!told.value || (fields.value && *fields.value != *told.value)) {
                throw foreignReply(reply, command);
            }
        } else if (reply.lines[1] != filledIn(row.result, fields)) {
            throw foreignReply(reply, command);
        }
    }
    return told;
}

Json configJson(const CardConfigRow& row, const Fields& fields) {
    Json json{{"address", std::string(1, fields.address())}, {"command", row.name}};
    if (fields.end) {
        json["end"] = std::string(1, *fields.end);
    }
    if (fields.channel) {
        json["channel"] = *fields.channel - '0';
    }
    if (fields.value) {
        json["value"] = *fields.value;
        json["hex"] = hexByte(*fields.value);
    }
    if (fields.on) {
        json["on"] = *fields.on;
    }
    return json;
}

}  // namespace ctl
