#include "thread/loop_pause.h"

#include <poll.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include <array>

#include "common/pauses.h"

namespace {

/// The shortest pause that is left to the system's timers, in microseconds.
constexpr useconds_t kLongEnough = 50;

}  // namespace

LoopPause::LoopPause(std::chrono::nanoseconds longestRest)
    : longestRest_(longestRest), event_(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {}

LoopPause::~LoopPause() {
    if (event_ != -1) {
        close(event_);
    }
}

void LoopPause::itemAdded() {
    ++items_;
}

void LoopPause::itemTaken() {
    --items_;
}

void LoopPause::wake() {
    if (resting_.exchange(false)) {
        eventfd_write(event_, 1);
    }
}

void LoopPause::announceChange() {
    changed_ = true;
    wake();
}

void LoopPause::pause(std::int32_t microseconds, int descriptor) {
    pauseWith(microseconds, Items::kCount, descriptor);
}

void LoopPause::pauseWithoutWork(std::int32_t microseconds) {
    pauseWith(microseconds, Items::kStay, -1);
}

void LoopPause::pauseWith(std::int32_t microseconds, Items items, int descriptor) {
    const auto length = static_cast<useconds_t>(microseconds);
    if (length >= kLongEnough || event_ == -1) {
        usleep(length);
        return;
    }
    const auto begin = std::chrono::steady_clock::now();
    // The loop says that it rests before it looks for work: an item or a change that comes
    // after the look then finds the loop resting and wakes it.
    resting_ = true;
    if (!changed_ && (items_ == 0 || items == Items::kStay)) {
        rest(descriptor);
    }
    resting_ = false;
    // The cycle that follows reads whatever was changed before this line.
    if (changed_) {
        changed_ = false;
    }
    const auto end = begin + std::chrono::microseconds(length);
    spinFor(std::chrono::nanoseconds(end - std::chrono::steady_clock::now()).count());
}

void LoopPause::rest(int descriptor) {
    std::array<pollfd, 2> work{pollfd{event_, POLLIN, 0}, pollfd{descriptor, POLLIN, 0}};
    const auto seconds = std::chrono::floor<std::chrono::seconds>(longestRest_);
    const timespec longest{seconds.count(), (longestRest_ - seconds).count()};
    ppoll(work.data(), work.size(), &longest, nullptr);
    if (work[0].revents != 0) {
        eventfd_t count = 0;
        eventfd_read(event_, &count);
    }
}
