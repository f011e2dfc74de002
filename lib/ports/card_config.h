#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "lib/ports/card_kind.h"
#include "lib/ports/dialogue.h"

namespace zolt_ports {

/// The thirteen card configuration commands. The daemon waits for a second while
/// it carries one of them out.
enum class CardConfig {
    kSetLcdSelfTest,
    kSetLcdLight,
    kSetMask,
    kGetMask,
    kStoreMask,
    kSetServoEnd,
    kGetServoEnd,
    kStorePositions,
    kRestorePositions,
    kSetSilentRange,
    kGetSilentRange,
    kStoreSilentRanges,
    kReboot,
};

/// The arguments of a command and, from its reply, its result. Those that the command
/// has are set.
struct CardFields {
    char address = '0';           ///< an upper-case hexadecimal digit
    std::optional<char> end;      ///< 'A' or 'B'
    std::optional<char> channel;  ///< a digit
    std::optional<bool> on;
    std::optional<std::uint8_t> value;
};

/// How a command looks on the console; the texts are patterns for filledIn().
struct CardConfigRow {
    CardConfig command;
    /// The kind that the card has to be of; nothing if every kind will do.
    std::optional<CardKind> kind;
    const char* line;     ///< what the console is sent, without its line end
    const char* success;  ///< the first line of the reply
    const char* result;   ///< the second line, null if there is none
};

std::span<const CardConfigRow> cardConfigRows();

const CardConfigRow& rowOf(CardConfig command);

/// A pattern with its letters replaced: %a by the address, %e by the end, %c by the
/// channel, %s by the state in capitals, %o by the state in small letters, %v by the
/// value as two hexadecimal digits.
std::string filledIn(std::string_view pattern, const CardFields& fields);

/// The line that sends the command, without its line end.
std::string lineOf(CardConfig command, const CardFields& fields);

/// Checks the reply to the command and returns the fields with the value that the reply
/// reports. Throws PortError as the functions of replies.h do.
CardFields parseConfigReply(CardConfig command, const CardFields& fields, const Reply& reply);

}  // namespace zolt_ports
