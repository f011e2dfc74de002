#include "tests/support/wait.h"

#include <thread>

namespace support {

bool waitUntil(const std::function<bool()>& predicate, std::chrono::milliseconds patience) {
    constexpr std::chrono::milliseconds kPause{5};
    const auto deadline = Clock::now() + patience;
    while (!predicate()) {
        if (Clock::now() >= deadline) return predicate();
        std::this_thread::sleep_for(kPause);
    }
    return true;
}

}  // namespace support
