#pragma once

#include <string>

#include "bench/report/report.h"

namespace bench {

/// The whole report as text, for a terminal or a document: the machine, a row per
/// figure and a column per contestant, each speed, and what the daemon should reach.
std::string table(const Report& report);

}  // namespace bench
