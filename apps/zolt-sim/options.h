// The program's command line.
#pragma once

#include <string>
#include <vector>

#include "apps/zolt-sim/trace.h"

namespace sim {

struct Options {
    std::string busFile;
    std::string link;
    unsigned baud = 460800;
    std::string controlPath;   // empty: no control socket
    std::string traceFile;     // empty: none
    std::string scenarioFile;  // empty: none
    TraceFilter filter = TraceFilter::kCommands;
    bool help = false;
    bool version = false;
};

// `arguments` without the program's name. Throws std::invalid_argument with the reason.
Options parseOptions(const std::vector<std::string>& arguments);

std::string optionsHelp();

}  // namespace sim
