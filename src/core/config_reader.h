#pragma once

#include <string>

#include "core/configuration.h"

/// The error text of a file that cannot be loaded.
inline constexpr const char* kUnloadable = "Unable to load config, or unable to parse XML file!";

/// Reads the XML configuration at `path`. Never throws; the result is complete,
/// defaults included, and a failure is in its error text: kUnloadable, or that
/// of a port which is too low.
CONFIG_DESCRIPTOR readConfigFile(const std::string& path);

/// Reports to the system log that the daemon cannot start without a configuration.
void reportUnloadable();
