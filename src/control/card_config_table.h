#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "bus/card_kinds.h"
#include "control/carried_states.h"

/// The arguments of one card configuration command, as numbers and as typed.
struct CardConfigArguments {
    std::string addressText;
    std::string endText;
    std::string channelText;
    /// The state of an LCD command as the reply repeats it.
    std::string stateText;
    unsigned address = 0;  ///< 0 to 15
    unsigned channel = 0;  ///< 0 to 15, not bounded to what the card has
    std::uint8_t value = 0;
};

/// One row of the table of card configuration commands.
struct CardConfigCommand {
    enum class Shape {
        kAddress,     ///< KEYWORD:x
        kChannel,     ///< KEYWORDp:x, p a channel
        kEndChannel,  ///< KEYWORDpc:x, p an end (A or B), c a channel
    };
    enum class Value { kNone, kByte, kState };
    enum class Operation : char { kSet = 0x01, kRead = 0x40 };

    const char* keyword;
    Shape shape = Shape::kAddress;
    /// The settings that the card's kind must have, and the reply when it has
    /// others. With kNone the command is for any card, even for an empty slot.
    CardSettings settings = CardSettings::kNone;
    const char* wrongKind = "";
    Operation operation;
    /// The card-side register of channel 0 at end A, and its distance to that of
    /// channel 0 at end B.
    unsigned registerBase;
    unsigned endBOffset = 0;
    Value value = Value::kNone;
    /// The member that keeps the last state, for Value::kState alone.
    std::uint8_t CarriedStates::*carried = nullptr;
    const char* success;
    /// Whether " at address x" follows the success text.
    bool namesAddress = false;
    /// Makes the machine-readable line; none for a command without one. `answer`
    /// is byte 3 of the card's answer.
    std::string (*resultLine)(const CardConfigArguments& arguments, char answer) = nullptr;
    const char* failure;
};

/// The rows in test order.
std::span<const CardConfigCommand> cardConfigCommands();
