#include "apps/zolt-sim/cards/card_kinds.h"

#include <algorithm>
#include <array>
#include <type_traits>

#include "apps/zolt-sim/cards/input_cards.h"
#include "apps/zolt-sim/cards/output_cards.h"
#include "apps/zolt-sim/cards/stream_cards.h"
#include "lib/text/hexadecimal.h"

namespace zolt_sim {
namespace {

/// A new card of class `Kind`, with the preset data bytes if the class has any.
template <typename Kind>
std::unique_ptr<Card> make(const CardKind& kind) {
    if constexpr (std::is_constructible_v<Kind, Bytes>) {
        return std::make_unique<Kind>(Bytes(kind.dataBytes, kind.preset));
    } else {
        return std::make_unique<Kind>();
    }
}

constexpr std::array kKinds{
    CardKind{0x03, "digital-output", 2, 0xFF, InputDevice::kNone, make<OutputCard>},
    CardKind{0x04, "digital-input", 2, 0x00, InputDevice::kSwitches, make<InputCard>},
    CardKind{0x05, "servo", 6, 0x80, InputDevice::kNone, make<ServoCard>},
    CardKind{0x06, "motor", 4, 0x00, InputDevice::kNone, make<MotorCard>},
    CardKind{0x07, "analogue-input", 6, 0x00, InputDevice::kPotentiometers,
             make<AnalogueInputCard>},
    CardKind{0x08, "keymatrix", 1, 0x00, InputDevice::kKeys, make<InputCard>},
    CardKind{0x09, "lcd", 0, 0x00, InputDevice::kNone, make<LcdCard>},
    CardKind{0x0A, "ir", 0, 0x00, InputDevice::kNone, make<IrCard>},
};

template <typename Predicate>
const CardKind* kindWhere(Predicate predicate) {
    const auto* kind = std::find_if(kKinds.begin(), kKinds.end(), predicate);
    return kind == kKinds.end() ? nullptr : kind;
}

template <typename Predicate>
std::string namesWhere(Predicate predicate, std::string_view separator) {
    std::string names;
    for (const CardKind& kind : kKinds) {
        if (predicate(kind)) {
            names += names.empty() ? "" : separator;
            names += kind.name;
        }
    }
    return names;
}

}  // namespace

std::span<const CardKind> cardKinds() {
    return kKinds;
}

const CardKind* findKind(std::uint8_t code) {
    return kindWhere([code](const CardKind& kind) { return kind.code == code; });
}

const CardKind* findKind(std::string_view name) {
    return kindWhere([name](const CardKind& kind) { return kind.name == name; });
}

std::string kindName(std::uint8_t code) {
    const CardKind* kind = findKind(code);
    return kind != nullptr ? std::string(kind->name) : "code " + zolt_text::hexByte(code);
}

std::string kindNames(std::string_view separator) {
    return namesWhere([](const CardKind&) { return true; }, separator);
}

std::string kindNamesWith(InputDevice inputs) {
    return namesWhere([inputs](const CardKind& kind) { return kind.inputs == inputs; }, " or ");
}

std::unique_ptr<Card> makeCard(std::uint8_t code) {
    const CardKind* kind = findKind(code);
    return kind != nullptr ? kind->make(*kind) : std::make_unique<UnknownCard>();
}

}  // namespace zolt_sim
