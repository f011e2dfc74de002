#pragma once

#include <string>
#include <vector>

#include "bench/report/report.h"

namespace bench {

struct Picture {
    /// "performance-cards.svg".
    std::string fileName;
    std::string svg;
};

/// The report in pictures, without those for which nothing was measured.
std::vector<Picture> pictures(const Report& report);

}  // namespace bench
