#pragma once

#include <string>

#include "core/descriptors.h"

/// Reads the XML configuration at `path`. Never throws; the result is complete,
/// defaults included, and a failure is in its error text. A file that cannot be
/// loaded is reported to the system log as well.
CONFIG_DESCRIPTOR readConfigFile(const std::string& path);
