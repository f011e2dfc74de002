#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "bus/perifcard.h"
#include "bus/poll_data.h"

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

/// What a card takes on IO besides block commands.
enum class CardStream {
    kNone,
    kLcd,       ///< LCD controls and texts
    kInfrared,  ///< hexadecimal streams
};

/// The card configuration commands that a card understands. Every card also understands
/// "REBOOT:".
enum class CardSettings {
    kNone,
    kStartStates,   ///< of an LCD: self-test message and backlight
    kChannelMask,   ///< of analogue inputs
    kPositions,     ///< of servos, stored ones and end positions
    kSilentRanges,  ///< of motors
};

/// One row of the table of card kinds. All that differs by kind in the daemon is
/// a column here; no other file compares a kind.
struct CardKind {
    char code;
    /// The display name, at most 39 characters.
    const char* name;
    CardClass cardClass = CardClass::kNone;
    /// The data bytes that the card carries; of an input card also the third
    /// byte of its poll frame and the bytes of a poll answer that count.
    std::int32_t dataLength = 0;
    /// What the data of a poll answer means. Input cards have it and no others.
    bool (*takeData)(PERIFCARD& card, PollData data) = nullptr;
    /// How many blocks of an input card "GETLASTINPST:" can ask for, 0 for none.
    std::size_t askableBlocks = 0;
    /// How many values make up the output state that each block command sends, 0
    /// for a card without blocks.
    std::size_t outputValues = 0;
    /// How many of the first values discovery presets, and to what.
    std::size_t presetValues = 0;
    std::uint8_t preset = 0;
    CardStream stream = CardStream::kNone;
    CardSettings settings = CardSettings::kNone;
};

/// The kinds that have a name of their own, by ascending code.
std::span<const CardKind> cardKinds();

/// The kind of a record's card. A code that no row has is the unidentified kind,
/// which can do nothing.
const CardKind& kindOf(const PERIFCARD& card);

/// The serial task enters what discovery found at `address` into the record `card`. Values,
/// flags, sums and the poll frame are not cleared first: a second discovery without a
/// clearing doubles the poll frame of an input card.
/// REQUIRES: `address` is at most 15.
void setUpCard(PERIFCARD& card, std::uint8_t address, char kindCode);
