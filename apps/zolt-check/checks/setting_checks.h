#pragma once

#include "apps/zolt-check/document/config_document.h"
#include "apps/zolt-check/findings/finding.h"
#include "core/configuration.h"

namespace zolt_check {

/// Applies the attributes of a child of the root other than Interfaces to `config`, as
/// the daemon does, and reports the values that have an unexpected effect.
void checkSetting(const ConfigElement& element, CONFIG_DESCRIPTOR& config, Findings& findings);

/// Reports a log file that this process cannot open, without creating or changing
/// anything. `place` is the place of the setting that names the file.
void checkLogFile(const std::string& path, ConfigPlace place, Findings& findings);

}  // namespace zolt_check
