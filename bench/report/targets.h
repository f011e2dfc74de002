#pragma once

#include <optional>
#include <string>
#include <vector>

#include "bench/report/report.h"

namespace bench {

/// What the daemon should reach, and whether it did.
struct Verdict {
    std::string daemon;
    std::string text;
    /// "at least 0.98", and the value in the same form.
    std::string limit;
    std::string value;
    bool met = false;
};

/// One row for each daemon and each target for which there is a value.
std::vector<Verdict> verdicts(const Report& report);

}  // namespace bench
