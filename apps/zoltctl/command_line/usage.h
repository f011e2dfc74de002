#pragma once

#include <string>

#include "apps/zoltctl/commands/command.h"

namespace zoltctl {

/// The forms of a command, one per line, and the words that its parameters take.
std::string usageOf(const CommandRow& row);

}  // namespace zoltctl
