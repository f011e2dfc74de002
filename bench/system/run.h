#pragma once

#include <iosfwd>
#include <vector>

#include "bench/report/report.h"
#include "bench/system/effort.h"

namespace bench {

/// Lets the contestants take turns, round after round, and returns what came of
/// it; when something does not work, what there is up to then, which says so
/// (brokenOff). Tells on `progress` where it is. Must run in a private view; throws
/// Failure when it does not.
Report run(const std::vector<Contestant>& contestants, const Effort& effort,
           std::ostream& progress);

}  // namespace bench
