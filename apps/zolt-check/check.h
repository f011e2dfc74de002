#pragma once

#include <string>
#include <vector>

#include "apps/zolt-check/finding.h"
#include "core/descriptors.h"

namespace check {

struct Result {
    /// What the daemon makes of the file; it starts unless the error text says
    /// otherwise.
    CONFIG_DESCRIPTOR config;
    /// In the order of their places; an error says why the daemon does not start.
    std::vector<Finding> findings;

    bool starts() const { return config.errorText == CONFIG_DESCRIPTOR::kNoError; }
};

/// Reads the configuration at `path` with the daemon's own reader and explains
/// it. Throws only when memory runs out.
Result checkFile(const std::string& path);

}  // namespace check
