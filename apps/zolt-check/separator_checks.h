// Line ends that clients will not expect.
#pragma once

#include <string>

#include "apps/zolt-check/finding.h"

namespace check {

/// Reports an InpSeparator or OutSeparator that surprises. `separator` is what
/// the daemon makes of it, `interface` the name of its interface. That of the
/// monitor's replies depends on IO's and is not for here.
void checkSeparator(const ConfigAttribute& attribute, const std::string& separator,
                    const std::string& interface, Findings& findings);

}  // namespace check
