#pragma once

#include <optional>
#include <string>

#include "tests/support/process/daemon_settings.h"

namespace golden {

/// The settings before the first action: the bus, and the daemon's configuration.
struct Setup {
    /// Text of the bus file. Without a text no simulated bus runs.
    std::optional<std::string> bus;
    std::string link = "/dev/ttyUSB0";
    int baud = 0;
    bool pollsShown = false;
    support::DaemonSettings settings;
    /// Text of a whole configuration file, which replaces the settings.
    std::optional<std::string> configuration;
};

}  // namespace golden
