#include "apps/zolt-sim/adapter/pause.h"

#include <poll.h>
#include <sys/prctl.h>

#include <ctime>

namespace zolt_sim {
namespace {

using std::chrono::nanoseconds;

/// A longer wait can be interrupted, a shorter one cannot.
constexpr std::chrono::milliseconds kUninterrupted{2};
/// A sleep ends late by at most about this time on a machine that is not overloaded.
constexpr std::chrono::microseconds kSpun{80};

constexpr long kNanosecondsPerSecond = 1000000000;

timespec toTimespec(nanoseconds time) {
    timespec result{};
    result.tv_sec = static_cast<time_t>(time.count() / kNanosecondsPerSecond);
    result.tv_nsec = static_cast<long>(time.count() % kNanosecondsPerSecond);
    return result;
}

}  // namespace

nanoseconds wireTime(std::size_t bytes, unsigned baud) {
    constexpr long kBitsPerByte = 10;
    if (baud == 0) {
        return nanoseconds{0};
    }
    return nanoseconds{static_cast<long>(bytes) * kBitsPerByte * kNanosecondsPerSecond /
                       static_cast<long>(baud)};
}

bool holdUntil(Clock::time_point deadline, int stopEvent) {
    for (auto left = deadline - Clock::now(); left > kUninterrupted;
         left = deadline - Clock::now()) {
        pollfd event{stopEvent, POLLIN, 0};
        const timespec timeout = toTimespec(left - kUninterrupted);
        if (::ppoll(&event, 1, &timeout, nullptr) > 0) {
            return false;
        }
    }
    const Clock::time_point sleepEnd = deadline - kSpun;
    if (Clock::now() < sleepEnd) {
        const timespec end = toTimespec(sleepEnd.time_since_epoch());
        ::clock_nanosleep(CLOCK_MONOTONIC, TIMER_ABSTIME, &end, nullptr);
    }
    while (Clock::now() < deadline) {
    }
    return true;
}

void sharpenSleeps() {
    ::prctl(PR_SET_TIMERSLACK, 1UL, 0UL, 0UL, 0UL);
}

}  // namespace zolt_sim
