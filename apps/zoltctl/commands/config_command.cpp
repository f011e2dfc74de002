#include "apps/zoltctl/commands/config_command.h"

#include <array>
#include <nlohmann/json.hpp>

#include "apps/zoltctl/commands/command.h"
#include "lib/ports/blocking/console_session.h"
#include "lib/text/hexadecimal.h"

namespace zoltctl {

using zolt_ports::CardConfig;
using zolt_ports::CardFields;

namespace {

constexpr std::array kConfigForms{
    ConfigForm{"config lcd ADDRESS self-test STATE", "lcd self-test", CardConfig::kSetLcdSelfTest,
               "card %a: self-test at start is %o"},
    ConfigForm{"config lcd ADDRESS light STATE", "lcd light", CardConfig::kSetLcdLight,
               "card %a: light at start is %o"},
    ConfigForm{"config analogue ADDRESS mask MASK", "analogue mask", CardConfig::kSetMask,
               "card %a: mask is %v"},
    ConfigForm{"config analogue ADDRESS mask", "analogue mask", CardConfig::kGetMask,
               "card %a: mask is %v"},
    ConfigForm{"config analogue ADDRESS store", "analogue store", CardConfig::kStoreMask,
               "card %a: mask is stored"},
    ConfigForm{"config servo ADDRESS end END channel SERVO VALUE", "servo end",
               CardConfig::kSetServoEnd, "card %a: servo end %e, channel %c is %v"},
    ConfigForm{"config servo ADDRESS end END channel SERVO", "servo end", CardConfig::kGetServoEnd,
               "card %a: servo end %e, channel %c is %v"},
    ConfigForm{"config servo ADDRESS store", "servo store", CardConfig::kStorePositions,
               "card %a: positions are stored"},
    ConfigForm{"config servo ADDRESS restore", "servo restore", CardConfig::kRestorePositions,
               "card %a: servos are moved to the stored positions"},
    ConfigForm{"config motor ADDRESS silent-range MOTOR RANGE", "motor silent-range",
               CardConfig::kSetSilentRange, "card %a: silent range of channel %c is %v"},
    ConfigForm{"config motor ADDRESS silent-range MOTOR", "motor silent-range",
               CardConfig::kGetSilentRange, "card %a: silent range of channel %c is %v"},
    ConfigForm{"config motor ADDRESS store", "motor store", CardConfig::kStoreSilentRanges,
               "card %a: silent ranges are stored"},
    ConfigForm{"config reboot ADDRESS", "reboot", CardConfig::kReboot, "card %a: rebooted"},
};

}  // namespace

std::span<const ConfigForm> configForms() {
    return kConfigForms;
}

Json configJson(const ConfigForm& form, const CardFields& fields) {
    Json json{{"address", std::string(1, fields.address)}, {"command", form.name}};
    if (fields.end) {
        json["end"] = std::string(1, *fields.end);
    }
    if (fields.channel) {
        json["channel"] = *fields.channel - '0';
    }
    if (fields.value) {
        json["value"] = *fields.value;
        json["hex"] = zolt_text::hexByte(*fields.value);
    }
    if (fields.on) {
        json["on"] = *fields.on;
    }
    return json;
}

void configureCard(const Settings& settings, const Request& request) {
    const ConfigForm& form = configForms()[request.form];
    const CardFields& given = request.fields.card;
    zolt_ports::ConsoleSession console(settings.at(zolt_ports::Port::kCae), settings.timeout);
    const CardFields reported = zolt_ports::parseConfigReply(
        form.command, given, console.ask(zolt_ports::lineOf(form.command, given)));
    writeResult(settings, zolt_ports::filledIn(form.text, reported), configJson(form, reported));
}

}  // namespace zoltctl
