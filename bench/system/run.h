#pragma once

#include <iosfwd>
#include <vector>

#include "bench/report/report.h"
#include "bench/system/machine/crowd.h"
#include "bench/system/trials/effort.h"

namespace bench {

/// Lets the contestants take turns, round after round, and returns the figures. When
/// something does not work, the report has the figures up to then and the reason
/// (brokenOff). `progress` gets a line per stretch.
/// REQUIRES: the process is the first one of a private view, otherwise this throws Failure.
Report run(const std::vector<Contestant>& contestants, const Effort& effort, const Crowd& crowd,
           std::ostream& progress);

}  // namespace bench
