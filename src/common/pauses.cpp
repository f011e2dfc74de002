#include "common/pauses.h"

#include <sys/prctl.h>
#include <unistd.h>

#include <cerrno>
#include <ctime>

void sleepsec(int seconds) {
    timespec rest{seconds, 0};
    while (nanosleep(&rest, &rest) == -1 && errno == EINTR) {
    }
}

void Sleep(unsigned int n) {
    // 32-bit on purpose: the product wraps like the step count itself.
    const std::uint32_t nanoseconds = static_cast<std::uint32_t>(n) * 100U;
    const timespec request{0, static_cast<long>(nanoseconds)};
    nanosleep(&request, nullptr);
}

void pauseCycle(std::int32_t microseconds, bool punctual) {
    constexpr int kPunctual = 1;  // nanosecond
    // As the process was started with: read before any thread has another one,
    // since new threads inherit it.
    static const int ordinary = prctl(PR_GET_TIMERSLACK, 0, 0, 0, 0);
    thread_local int current = -1;
    const auto pause = static_cast<useconds_t>(microseconds);
    const bool brief = pause < static_cast<useconds_t>(ordinary / 1000);
    const int wanted = punctual && brief ? kPunctual : ordinary;
    if (current != wanted) {
        prctl(PR_SET_TIMERSLACK, wanted, 0, 0, 0);
        current = wanted;
    }
    usleep(pause);
}
