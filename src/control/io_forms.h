#pragma once

#include <optional>
#include <string>
#include <vector>

#include "bus/perifcard.h"
#include "common/byte_list.h"

/// What IO clients may type, as a table of forms. Pure but for one thing: a
/// block command stores its value in the card record, whatever the card.

/// A frame for the card at a bus address, 0 to 15. It is empty for a block
/// command to a card that has no blocks to set.
struct OutputFrame {
    std::size_t address;
    ByteList bytes;
};

/// Thrown by translateOutput for a command that ends before a position its form
/// reads.
inline constexpr int kCommandTooShort = 1;

/// The frame for one command without its separator, nothing when the command is
/// illegal. `cards` is the card table. Throws kCommandTooShort.
std::optional<OutputFrame> translateOutput(const std::string& command, PERIFCARD* cards);

/// The pieces of a chunk between separators, empty ones left out. An empty
/// separator separates nothing.
std::vector<std::string> splitCommands(const std::string& chunk, const std::string& separator);
