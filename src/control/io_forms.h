#pragma once

#include <optional>
#include <span>
#include <string>
#include <vector>

#include "bus/perifcard.h"
#include "common/byte_list.h"

/// What IO clients may type, as a table of forms. The functions have one side effect: a
/// block command stores its value in the card record, whatever the card.

/// A frame for the card at a bus address, 0 to 15. It is empty for a block
/// command to a card that has no blocks to set.
struct OutputFrame {
    std::size_t address;
    ByteList bytes;
};

/// Thrown for a command that ends before a position that its form reads.
struct CommandTooShort {
    /// The number that is traced on standard output.
    static constexpr int kNumber = 1;
};

/// One row of the table of forms. Both functions throw CommandTooShort.
struct IoForm {
    bool (*matches)(const std::string& command);
    /// The frame for a command of this form; nothing when it is illegal.
    std::optional<OutputFrame> (*translate)(const std::string& command, CardTable& cards);
};

/// The rows in test order; the first that matches a command decides.
std::span<const IoForm> ioForms();

/// One row of the table of LCD controls: the two letters and the code that the
/// frame carries.
struct LcdControl {
    char first;
    char second;
    char code;
};

std::span<const LcdControl> lcdControls();

/// The frame for one command without its separator, nothing when the command is
/// illegal. Throws CommandTooShort.
std::optional<OutputFrame> translateOutput(const std::string& command, CardTable& cards);

/// The pieces of a chunk between separators; empty pieces are left out. An empty
/// separator separates nothing.
std::vector<std::string> splitCommands(const std::string& chunk, const std::string& separator);
