#pragma once

#include <string>
#include <vector>

#include "apps/zolt-check/findings/finding.h"
#include "core/configuration.h"

namespace zolt_check {

/// What the daemon would do with a configuration file, and what is wrong with the file.
struct CheckedFile {
    /// The settings that the daemon reads from the file.
    CONFIG_DESCRIPTOR config;
    /// All findings in the order of their places. Each error is a reason why the daemon
    /// does not start.
    std::vector<Finding> findings;

    bool starts() const { return config.errorText == CONFIG_DESCRIPTOR::kNoError; }
};

/// Reads the configuration at `path` with the daemon's own reader and explains the
/// result. Throws only std::bad_alloc.
CheckedFile checkFile(const std::string& path);

}  // namespace zolt_check
