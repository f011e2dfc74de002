#pragma once

#include <chrono>
#include <string>

namespace zoltctl {

using WallTime = std::chrono::system_clock::time_point;

/// Local time, "2026-11-21 14:03:07.123".
std::string timeText(WallTime time);

/// Local time as ISO 8601, "2026-11-21T14:03:07.123+01:00".
std::string timeIso(WallTime time);

}  // namespace zoltctl
