#include "bus/card_kinds.h"

#include <algorithm>
#include <array>

#include "bus/wire.h"

namespace {

struct KindRow {
    char code;
    const char* name;
    std::int32_t cardClass;
    std::int32_t dataLength;
    /// How many of the first values are preset at discovery, and to what.
    std::size_t presetValues;
    std::uint8_t preset;
};

constexpr std::array kKinds{
    KindRow{card_kind::kEmpty, "EMPTY", card_class::kNone, 0, 0, 0},
    KindRow{card_kind::kDigitalOutput, "16 channel DIGITAL OUTPUT", card_class::kOutput, 2, 2,
            0xFF},
    KindRow{card_kind::kDigitalInput, "16 channel DIGITAL INPUT", card_class::kInput, 2, 0, 0},
    KindRow{card_kind::kServo, "6 channel RC SERVO CONTROLLER", card_class::kOutput, 6, 6, 0x80},
    KindRow{card_kind::kMotor, "3 channel DC MOTOR CONTROLLER", card_class::kOutput, 6, 0, 0},
    KindRow{card_kind::kAnalogueInput, "6 channel ANALOGUE INPUT", card_class::kInput, 6, 0, 0},
    KindRow{card_kind::kKeyMatrix, "KEYMX and ROTE CONTROLLER", card_class::kInput, 1, 0, 0},
    KindRow{card_kind::kLcd, "ALPHANUMERIC LCD CONTROLLER", card_class::kOutput, 21, 0, 0},
    KindRow{card_kind::kInfrared, "IR REMOTE CONTROLLER", card_class::kOutput, 1, 0, 0},
};

constexpr KindRow kUnidentified{0, "UNIDENTIFIED", card_class::kNone, 0, 0, 0};

const KindRow& kindOf(char code) {
    const auto* row = std::find_if(kKinds.begin(), kKinds.end(),
                                   [code](const KindRow& r) { return r.code == code; });
    return row == kKinds.end() ? kUnidentified : *row;
}

}  // namespace

void setUpCard(PERIFCARD& card, std::uint8_t address, char kindCode) {
    const KindRow& kind = kindOf(kindCode);
    card.kindCode = kindCode;
    card.address = address;
    card.kindName = kind.name;
    card.cardClass = kind.cardClass;
    card.dataLength = kind.dataLength;
    std::fill_n(card.values.begin(), kind.presetValues, kind.preset);
    if (kind.cardClass == card_class::kInput) {
        card.pollingOn = true;
        card.AppendToPollFrame(
            {wire::kPoll, static_cast<char>(address), static_cast<char>(kind.dataLength)});
    }
}
