#include "tests/support/doubles/recorded_pauses.h"

#include <atomic>

namespace {

std::atomic<support::RecordedPauses*> currentPauses{nullptr};

}  // namespace

// The linker's names for sleepsec(int).
extern "C" {
void __real__Z8sleepseci(int seconds);
void __wrap__Z8sleepseci(int seconds);

void __wrap__Z8sleepseci(int seconds) {
    if (support::RecordedPauses* pauses = currentPauses) {
        pauses->pause(seconds);
    } else {
        __real__Z8sleepseci(seconds);
    }
}
}

namespace support {

RecordedPauses::RecordedPauses() {
    currentPauses = this;
}

RecordedPauses::~RecordedPauses() {
    currentPauses = nullptr;
}

std::vector<int> RecordedPauses::take() {
    const std::lock_guard guard(lock_);
    return std::exchange(pauses_, {});
}

void RecordedPauses::duringNext(std::function<void()> action) {
    const std::lock_guard guard(lock_);
    action_ = std::move(action);
}

void RecordedPauses::pause(int seconds) {
    std::function<void()> action;
    {
        const std::lock_guard guard(lock_);
        pauses_.push_back(seconds);
        action = std::exchange(action_, nullptr);
    }
    if (action) action();
}

}  // namespace support
