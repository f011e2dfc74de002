#pragma once

#include <string>

#include "core/zlqueue.h"

/// The console's interpreter: carries out one line of a CAE client and queues
/// its reply items, each ended with `outSeparator`. A line that is no command
/// draws one item, the unknown-command answer with the prompt. Called by the
/// master loop.
void interpretConsoleLine(const std::string& line, const std::string& outSeparator,
                          ZLQUEUE& replies);
