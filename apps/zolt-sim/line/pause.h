// Waiting with the precision that a serial line has.
#pragma once

#include <chrono>
#include <cstddef>

namespace sim {

using Clock = std::chrono::steady_clock;

// The time that `bytes` bytes take at `baud` with 8 data bits, a start and a
// stop bit; baud 0 stands for a line without any delay.
std::chrono::nanoseconds wireTime(std::size_t bytes, unsigned baud);

// Returns true at the deadline, with a precision of microseconds while the
// machine has a processor free: the last stretch is spun, not slept. Returns
// false as soon as `stopEvent` becomes readable, if that is more than a few
// milliseconds ahead of the deadline.
bool holdUntil(Clock::time_point deadline, int stopEvent);

// Makes the sleeps of the calling thread end as exactly as the system can.
void sharpenSleeps();

}  // namespace sim
