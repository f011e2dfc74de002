#pragma once

#include <span>

#include "apps/zoltctl/commands/command.h"

namespace zoltctl {

/// The commands, in the order in which --help shows them.
std::span<const CommandRow> commandRows();

}  // namespace zoltctl
