#pragma once

#include "bus/perifcard.h"

/// Kind codes of the discovery answer.
namespace card_kind {
inline constexpr char kEmpty = 0;
inline constexpr char kDigitalOutput = 3;
inline constexpr char kDigitalInput = 4;
inline constexpr char kServo = 5;
inline constexpr char kMotor = 6;
inline constexpr char kAnalogueInput = 7;
inline constexpr char kKeyMatrix = 8;
inline constexpr char kLcd = 9;
inline constexpr char kInfrared = 10;
}  // namespace card_kind

/// Serial task: enters what discovery found at `address` (0 to 15) into its
/// record. Values, flags, sums and the poll frame are not cleared first: a
/// second discovery without a clearing doubles the poll frame of an input card.
void setUpCard(PERIFCARD& card, std::uint8_t address, char kindCode);
