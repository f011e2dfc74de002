#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>

#include "control/console_line.h"

class Console;

/// The LCD start-up states sent last, one per command: an argument that is
/// neither "ON" nor "OFF" sends the last one again.
struct CarriedStates {
    std::uint8_t selfTest = 0;
    std::uint8_t initLight = 0;
};

/// The arguments of one card configuration command, as numbers and as typed.
struct CardConfigArguments {
    std::string addressText;
    std::string endText;
    std::string channelText;
    /// The state of an LCD command as it is echoed.
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
    /// The kind code that the card must have, and the reply when it has another;
    /// none: any card, even none at all.
    std::optional<char> kind = std::nullopt;
    const char* wrongKind = "";
    Operation operation;
    /// The card-side register of channel 0 at end A, and how far behind it that
    /// of end B is.
    unsigned registerBase;
    unsigned endBOffset = 0;
    Value value = Value::kNone;
    /// For Value::kState: where the last state is kept.
    std::uint8_t CarriedStates::*carried = nullptr;
    const char* success;
    /// Whether " at address x" follows the success text.
    bool namesAddress = false;
    /// The machine-readable line, or none. `answer` is byte 3 of the card's
    /// answer.
    std::string (*resultLine)(const CardConfigArguments& arguments, char answer) = nullptr;
    const char* failure;
};

/// The rows in test order.
std::span<const CardConfigCommand> cardConfigCommands();

/// Runs every card configuration command that the line matches; true if any
/// did. Each that reaches its card blocks for one second.
bool runCardConfigCommands(Console& console, const ConsoleLine& line);
