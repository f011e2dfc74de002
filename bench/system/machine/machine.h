#pragma once

#include "bench/report/report.h"

namespace bench {

/// The machine that this program runs on; the placement is left to the caller.
Machine thisMachine();

/// "2026-11-21 07:07:17", local time.
std::string dateNow();

}  // namespace bench
