#pragma once

#include <iosfwd>
#include <vector>

#include "bench/report/report.h"
#include "bench/system/effort.h"

namespace bench {

/// Lets the contestants take turns, round after round, and returns what came of
/// it. Tells on `progress` where it is. Must run in a private view. Throws Failure
/// when something does not work.
Report run(const std::vector<Contestant>& contestants, const Effort& effort,
           std::ostream& progress);

}  // namespace bench
