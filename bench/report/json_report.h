#pragma once

#include <string>

#include "bench/report/report.h"

namespace bench {

/// The report as a JSON text, with every value of every round and the verdicts,
/// and without the folders of the programs.
std::string toJson(const Report& report);

/// Reads what toJson wrote; throws std::runtime_error when it is something else.
Report fromJson(const std::string& text);

}  // namespace bench
