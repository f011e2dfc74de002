#pragma once

#include "bench/report/report.h"

namespace bench {

/// The machine that this program runs on; the caller fills in the placement.
Machine thisMachine();

/// "2026-11-21 07:07:17", local time.
std::string dateNow();

}  // namespace bench
