#pragma once

#include <string>
#include <vector>

#include "apps/zolt-sim/trace.h"

namespace zolt_sim {

/// What the command line asks for.
struct Options {
    std::string busFile;
    std::string link;
    /// Speed of the wire in bits per second; 0 answers at once.
    unsigned baud = 460800;
    /// Empty if there is no control socket.
    std::string controlPath;
    /// Empty if the trace is not written to a file.
    std::string traceFile;
    /// Empty if there is no scenario.
    std::string scenarioFile;
    TraceFilter filter = TraceFilter::kCommands;
    /// The text of --help or --version. If it is not empty, the program prints it instead
    /// of starting a bus.
    std::string text;
};

/// Reads the arguments without the program's name. Throws Error with the status
/// ExitStatus::kWrongUse.
Options parseOptions(const std::vector<std::string>& arguments);

}  // namespace zolt_sim
