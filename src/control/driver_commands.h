#pragma once

#include <span>

#include "control/console.h"
#include "control/console_line.h"

/// How a line is recognised; case-sensitive all three.
enum class Match {
    kKeywordOnly,  ///< contains the keyword
    kContains,     ///< contains the keyword and the separator
    kExact,        ///< is the keyword and the separator
};

bool matches(const ConsoleLine& line, const char* keyword, Match match);

/// One row of the command table.
struct DriverCommand {
    const char* keyword;
    Match match;
    /// Carries the command out with its replies; whether the line counts as
    /// recognised.
    bool (*run)(Console& console, const ConsoleLine& line);
};

/// The rows in test order.
std::span<const DriverCommand> driverCommands();
