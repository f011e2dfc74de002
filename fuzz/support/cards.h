#pragma once

#include <array>
#include <cstdint>

#include "bus/card_kinds.h"

namespace fuzz {

/// What sits at each bus address: every kind at least once, two of a kind at
/// neighbouring addresses, an empty slot and a card of no known kind.
inline constexpr std::array<char, 16> kKinds{card_kind::kServo,         card_kind::kServo,
                                             card_kind::kMotor,         card_kind::kDigitalInput,
                                             card_kind::kDigitalInput,  card_kind::kDigitalOutput,
                                             card_kind::kDigitalOutput, char{42},
                                             card_kind::kKeyMatrix,     card_kind::kInfrared,
                                             card_kind::kMotor,         card_kind::kEmpty,
                                             card_kind::kInfrared,      card_kind::kKeyMatrix,
                                             card_kind::kLcd,           card_kind::kAnalogueInput};

}  // namespace fuzz
