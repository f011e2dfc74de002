#pragma once

#include <string>

#include "apps/zolt-check/document/config_document.h"
#include "apps/zolt-check/findings/finding.h"

namespace zolt_check {

/// Reports an InpSeparator or OutSeparator that clients will not expect. `attribute` is
/// the setting as typed, `separator` the bytes that the daemon reads from it, `interface`
/// the name of its interface. The OutSeparator of the monitor depends on that of IO and
/// is not checked here.
void checkSeparator(const ConfigAttribute& attribute, const std::string& separator,
                    const std::string& interface, Findings& findings);

}  // namespace zolt_check
