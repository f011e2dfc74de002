#pragma once

#include <string>
#include <vector>

#include "apps/zoltctl/arguments/settings.h"
#include "apps/zoltctl/commands/commands.h"

namespace zoltctl {

/// A command line, read and checked.
struct Invocation {
    GivenSettings given;
    bool json = false;
    bool check = true;
    const CommandRow* row = nullptr;
    Request request;
    /// The text of --help or --version, instead of a command.
    std::string text;
};

/// Reads the arguments, without the program's name, and the environment. Throws Failure
/// of status kUsage.
Invocation readCommandLine(const std::vector<std::string>& arguments);

}  // namespace zoltctl
