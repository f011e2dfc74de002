#include "tests/support/doubles/long_rests.h"

#include <poll.h>

#include <atomic>
#include <chrono>
#include <thread>

#include "tests/support/wait.h"
#include "thread/loop_pause.h"

namespace {

std::atomic<bool> restsAreLong{false};
std::atomic<int> begun{0};
std::atomic<int> ranOut{0};

bool isRest(const timespec* wait) {
    return wait != nullptr &&
           std::chrono::seconds(wait->tv_sec) + std::chrono::nanoseconds(wait->tv_nsec) ==
               LoopPause::kLongestRest;
}

}  // namespace

extern "C" {
int __real_ppoll(pollfd* items, nfds_t count, const timespec* wait, const sigset_t* signals);
int __wrap_ppoll(pollfd* items, nfds_t count, const timespec* wait, const sigset_t* signals);

int __wrap_ppoll(pollfd* items, nfds_t count, const timespec* wait, const sigset_t* signals) {
    if (!restsAreLong || !isRest(wait)) {
        return __real_ppoll(items, count, wait, signals);
    }
    ++begun;
    const timespec longest{support::kPatience.count(), 0};
    const int ready = __real_ppoll(items, count, &longest, signals);
    ranOut += ready == 0 ? 1 : 0;
    return ready;
}
}

namespace support {

LongRests::LongRests() {
    begun = 0;
    ranOut = 0;
    restsAreLong = true;
}

LongRests::~LongRests() {
    restsAreLong = false;
}

bool LongRests::endsWith(const std::function<void()>& cycle,
                         const std::function<void()>& wakeUp) const {
    const int before = begun;
    std::jthread loop(cycle);
    const bool rested = waitUntil([before] { return begun > before; });
    wakeUp();
    loop.join();
    return rested && ranOut == 0;
}

}  // namespace support
