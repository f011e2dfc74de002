#pragma once

#include <span>

#include "control/console_context.h"
#include "control/console_line.h"

/// One row of the command table.
struct DriverCommand {
    const char* keyword;
    Match match;
    /// Carries the command out, with its replies.
    void (*run)(ConsoleContext& console, const ConsoleLine& line);
};

/// The rows in test order. The row with Match::kTable has neither keyword nor
/// function: it is the place of the card configuration commands.
std::span<const DriverCommand> driverCommands();
