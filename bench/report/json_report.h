#pragma once

#include <string>

#include "bench/report/report.h"

namespace bench {

/// The report as a JSON text, with every value of every round and the verdicts,
/// and without the folders of the programs.
std::string toJson(const Report& report);

}  // namespace bench
