#pragma once

#include "control/console_context.h"
#include "control/console_line.h"

/// Runs every card configuration command that the line matches; true if any did.
/// Each command that reaches its card blocks for one second.
bool runCardConfigCommands(ConsoleContext& console, const ConsoleLine& line);
