#include "common/pauses.h"

#include <cerrno>
#include <chrono>
#include <ctime>

void sleepsec(int seconds) {
    timespec rest{seconds, 0};
    while (nanosleep(&rest, &rest) == -1 && errno == EINTR) {
    }
}

void Sleep(unsigned int n) {
    // The product has 32 bits on purpose: it wraps as the step count itself does.
    const std::uint32_t nanoseconds = static_cast<std::uint32_t>(n) * 100U;
    const timespec request{0, static_cast<long>(nanoseconds)};
    nanosleep(&request, nullptr);
}

void spinFor(long nanoseconds) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::nanoseconds(nanoseconds);
    while (std::chrono::steady_clock::now() < end) {
    }
}
