// Following a port line by line until something ends it.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "apps/zoltctl/command_line/settings.h"
#include "apps/zoltctl/commands/commands.h"
#include "apps/zoltctl/output/live_output.h"

namespace ctl {

struct Listening {
    Port port;
    /// What ends lines there, besides carriage return and line feed.
    std::vector<std::string> separators;
    /// Runs beside, before the first line is written; `hurry` as in LiveOutput.
    std::function<void(int hurry)> before;
    /// What becomes of a line of the port. It is called as soon as the line is
    /// there; what it returns makes the text, beside and later.
    std::function<std::function<std::string()>(const std::string& line)> convert;
};

/// Reads without a pause and hands the output to a thread of its own, so that an
/// output that is slow never makes the daemon wait. Ends by --for and --count of
/// the request; throws Failure for all other ends.
void listenTo(const Settings& settings, const Request& request, const Listening& listening);

}  // namespace ctl
