#include "bus/card_kinds.h"

#include <algorithm>
#include <array>

#include "bus/wire.h"

namespace {

constexpr std::array kKinds{
    CardKind{.code = card_kind::kEmpty, .name = "EMPTY"},
    CardKind{.code = card_kind::kDigitalOutput,
             .name = "16 channel DIGITAL OUTPUT",
             .cardClass = CardClass::kOutput,
             .dataLength = 2,
             .outputValues = 2,
             .presetValues = 2,
             .preset = 0xFF},
    CardKind{.code = card_kind::kDigitalInput,
             .name = "16 channel DIGITAL INPUT",
             .cardClass = CardClass::kInput,
             .dataLength = 2,
             .takeData = takeBlocks,
             .askableBlocks = 2},
    CardKind{.code = card_kind::kServo,
             .name = "6 channel RC SERVO CONTROLLER",
             .cardClass = CardClass::kOutput,
             .dataLength = 6,
             .outputValues = 6,
             .presetValues = 6,
             .preset = 0x80,
             .settings = CardSettings::kPositions},
    CardKind{.code = card_kind::kMotor,
             .name = "3 channel DC MOTOR CONTROLLER",
             .cardClass = CardClass::kOutput,
             .dataLength = 6,
             .outputValues = 4,
             .settings = CardSettings::kSilentRanges},
    CardKind{.code = card_kind::kAnalogueInput,
             .name = "6 channel ANALOGUE INPUT",
             .cardClass = CardClass::kInput,
             .dataLength = 6,
             .takeData = takeAverages,
             .askableBlocks = 6,
             .settings = CardSettings::kChannelMask},
    CardKind{.code = card_kind::kKeyMatrix,
             .name = "KEYMX and ROTE CONTROLLER",
             .cardClass = CardClass::kInput,
             .dataLength = 1,
             .takeData = takeBlocks},
    CardKind{.code = card_kind::kLcd,
             .name = "ALPHANUMERIC LCD CONTROLLER",
             .cardClass = CardClass::kOutput,
             .dataLength = 21,
             .stream = CardStream::kLcd,
             .settings = CardSettings::kStartStates},
    CardKind{.code = card_kind::kInfrared,
             .name = "IR REMOTE CONTROLLER",
             .cardClass = CardClass::kOutput,
             .dataLength = 1,
             .stream = CardStream::kInfrared},
};

constexpr CardKind kUnidentified{.code = 0, .name = "UNIDENTIFIED"};

static_assert(std::all_of(kKinds.begin(), kKinds.end(),
                          [](const CardKind& kind) {
                              return (kind.takeData != nullptr) ==
                                     (kind.cardClass == CardClass::kInput);
                          }),
              "an input card's poll answers mean something, and no other card is polled");
static_assert(std::all_of(kKinds.begin(), kKinds.end(),
                          [](const CardKind& kind) {
                              return kind.takeData == nullptr ||
                                     kind.dataLength <= std::int32_t{PERIFCARD::kAnalogueChannels};
                          }),
              "takePollData gets no more bytes than these");

const CardKind& kindOfCode(char code) {
    const auto* row = std::find_if(kKinds.begin(), kKinds.end(),
                                   [code](const CardKind& kind) { return kind.code == code; });
    return row == kKinds.end() ? kUnidentified : *row;
}

}  // namespace

std::span<const CardKind> cardKinds() {
    return kKinds;
}

const CardKind& kindOf(const PERIFCARD& card) {
    return kindOfCode(card.kindCode);
}

void setUpCard(PERIFCARD& card, std::uint8_t address, char kindCode) {
    const CardKind& kind = kindOfCode(kindCode);
    card.kindCode = kindCode;
    card.address = address;
    card.kindName = kind.name;
    card.cardClass = kind.cardClass;
    card.dataLength = kind.dataLength;
    std::fill_n(card.values.begin(), kind.presetValues, kind.preset);
    if (kind.cardClass == CardClass::kInput) {
        card.pollingOn = true;
        card.appendToPollFrame(
            {wire::kPoll, static_cast<char>(address), static_cast<char>(kind.dataLength)});
    }
}
