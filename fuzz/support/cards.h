#pragma once

#include <array>
#include <cstdint>

#include "bus/card_kinds.h"

namespace fuzz {

/// The kind of the card at each bus address: every kind at least once, twice two cards of
/// the same kind at neighbouring addresses, an empty slot and a card of an unknown kind.
inline constexpr std::array<char, 16> kKinds{card_kind::kServo,         card_kind::kServo,
                                             card_kind::kMotor,         card_kind::kDigitalInput,
                                             card_kind::kDigitalInput,  card_kind::kDigitalOutput,
                                             card_kind::kDigitalOutput, char{42},
                                             card_kind::kKeyMatrix,     card_kind::kInfrared,
                                             card_kind::kMotor,         card_kind::kEmpty,
                                             card_kind::kInfrared,      card_kind::kKeyMatrix,
                                             card_kind::kLcd,           card_kind::kAnalogueInput};

}  // namespace fuzz
