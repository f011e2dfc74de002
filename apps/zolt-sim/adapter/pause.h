#pragma once

#include <chrono>
#include <cstddef>

namespace zolt_sim {

using Clock = std::chrono::steady_clock;

/// The time that `bytes` bytes take at `baud` bits per second with 8 data bits, a start
/// bit and a stop bit. At baud 0 the wire takes no time.
std::chrono::nanoseconds wireTime(std::size_t bytes, unsigned baud);

/// Waits for the deadline and returns true. The last stretch is busy-waited, so on a
/// machine with a free processor the wait ends within microseconds of the deadline.
/// Returns false as soon as `stopEvent` becomes readable, unless the deadline is only
/// a few milliseconds away by then.
bool holdUntil(Clock::time_point deadline, int stopEvent);

/// Makes the sleeps of the calling thread end as exactly as the system can.
void sharpenSleeps();

}  // namespace zolt_sim
