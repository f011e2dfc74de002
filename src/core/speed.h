#pragma once

#include <cstdint>

/// The pause per cycle of every loop, in microseconds, for a speed in percent:
/// 1 gives 5000, 50 gives 2525, 100 gives 1. The percent is not bounded here;
/// above 100 the result is negative and LoopPause takes it as more than half an hour.
/// Saturates at the limits of 32 bits.
std::int32_t threadDelayOfPercent(long percent);

/// The pause before any speed is configured, in microseconds.
inline constexpr std::int32_t kDefaultThreadDelay = 5000;
