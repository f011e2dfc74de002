#pragma once

#include <chrono>

namespace bench {

/// All measured times come from this clock.
using Clock = std::chrono::steady_clock;
using Time = Clock::time_point;

inline double microseconds(Clock::duration duration) {
    return std::chrono::duration<double, std::micro>(duration).count();
}

inline double microsecondsBetween(Time from, Time to) {
    return microseconds(to - from);
}

inline double secondsBetween(Time from, Time to) {
    return std::chrono::duration<double>(to - from).count();
}

}  // namespace bench
