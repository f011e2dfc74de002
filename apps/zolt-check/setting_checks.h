// The values of the settings that are not those of an interface.
#pragma once

#include "apps/zolt-check/finding.h"
#include "core/descriptors.h"

namespace check {

/// Applies the attributes of a child of the root to `config` as the daemon does,
/// and reports the values that surprise.
void checkSetting(const ConfigElement& element, CONFIG_DESCRIPTOR& config, Findings& findings);

/// Reports a log file that this process could not open; nothing is created or
/// changed. `place` is where the file is named.
void checkLogFile(const std::string& path, ConfigPlace place, Findings& findings);

}  // namespace check
