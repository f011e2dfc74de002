#include "lib/ports/card_kind.h"

#include <algorithm>
#include <array>
#include <string>
#include <vector>

#include "lib/text/alternatives.h"

namespace zolt_ports {
namespace {

constexpr std::array kKinds{
    CardKindRow{.kind = CardKind::kEmpty, .name = "EMPTY", .isCard = false},
    CardKindRow{.kind = CardKind::kDigitalOutput,
                .name = "16 channel DIGITAL OUTPUT",
                .needed = "a digital output card",
                .output = OutputCommand::kBlock,
                .outputBlocks = 2},
    CardKindRow{.kind = CardKind::kDigitalInput,
                .name = "16 channel DIGITAL INPUT",
                .needed = "a digital input card",
                .inputBlocks = 2,
                .askableBlocks = 2},
    CardKindRow{.kind = CardKind::kServo,
                .name = "6 channel RC SERVO CONTROLLER",
                .needed = "an RC servo card",
                .output = OutputCommand::kBlock,
                .outputBlocks = 6,
                .channels = 6,
                .highestSetting = 0xFF},
    CardKindRow{.kind = CardKind::kMotor,
                .name = "3 channel DC MOTOR CONTROLLER",
                .needed = "a DC motor card",
                .output = OutputCommand::kBlock,
                .outputBlocks = 4,
                .channels = 3,
                .highestSetting = 0x20},
    CardKindRow{.kind = CardKind::kAnalogueInput,
                .name = "6 channel ANALOGUE INPUT",
                .needed = "an analogue input card",
                .inputBlocks = 6,
                .askableBlocks = 6,
                .highestSetting = 0x3F},
    CardKindRow{
        .kind = CardKind::kKeyMatrix, .name = "KEYMX and ROTE CONTROLLER", .inputBlocks = 1},
    CardKindRow{.kind = CardKind::kLcd,
                .name = "ALPHANUMERIC LCD CONTROLLER",
                .needed = "an LCD controller card",
                .output = OutputCommand::kLcd},
    CardKindRow{.kind = CardKind::kInfrared,
                .name = "IR REMOTE CONTROLLER",
                .needed = "an IR remote controller card",
                .output = OutputCommand::kInfrared},
    CardKindRow{.kind = CardKind::kUnidentified, .name = "UNIDENTIFIED"},
};

}  // namespace

std::span<const CardKindRow> cardKinds() {
    return kKinds;
}

const CardKindRow& rowOf(CardKind kind) {
    return *std::find_if(kKinds.begin(), kKinds.end(),
                         [kind](const CardKindRow& row) { return row.kind == kind; });
}

CardKind kindNamed(std::string_view name) {
    const auto* row = std::find_if(kKinds.begin(), kKinds.end(),
                                   [name](const CardKindRow& entry) { return entry.name == name; });
    return row == kKinds.end() ? CardKind::kUnidentified : row->kind;
}

std::string neededKinds(const std::function<bool(const CardKindRow&)>& wanted) {
    std::vector<std::string> names;
    for (const CardKindRow& row : kKinds) {
        if (wanted(row)) {
            names.emplace_back(row.needed);
        }
    }
    return zolt_text::alternatives(names);
}

}  // namespace zolt_ports
