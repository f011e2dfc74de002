#pragma once

#include <functional>
#include <string>
#include <vector>

#include "ctl/settings.h"

namespace ctl {

/// What the user wants.
struct Invocation {
    GivenSettings given;
    bool json = false;
    bool check = true;
    /// The command, ready to run.
    std::function<void(const Settings&)> command;
    /// The text of --help or --version instead of a command; empty when there is
    /// one.
    std::string text;
};

/// Reads the arguments (without the program's name) and the environment. Throws
/// Failure of status kUsage.
Invocation readCommandLine(const std::vector<std::string>& arguments);

}  // namespace ctl
