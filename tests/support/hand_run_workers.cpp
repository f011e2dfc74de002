#include "tests/support/hand_run_workers.h"

#include <algorithm>
#include <utility>

#include "common/pauses.h"
#include "thread/LoopPause.h"

namespace {

std::vector<CThread*> living;
std::function<void()> duringPause;
int waiting = 0;

}  // namespace

// The definitions below take the place of those in the daemon's libraries: the
// linker takes a file out of a library only for what is still missing.

void sleepsec(int /*seconds*/) {}

void Sleep(unsigned int /*n*/) {}

void spinFor(long /*nanoseconds*/) {}

LoopPause::LoopPause(std::chrono::nanoseconds longestRest)
    : longestRest_(longestRest), event_(-1) {}

LoopPause::~LoopPause() = default;

void LoopPause::itemAdded() {
    ++waiting;
}

void LoopPause::itemTaken() {
    --waiting;
}

void LoopPause::pauseWithoutWork(std::int32_t microseconds) {
    pause(microseconds);
}

void LoopPause::pause(std::int32_t /*microseconds*/, int /*descriptor*/) {
    if (std::function<void()> action = std::exchange(duringPause, nullptr)) {
        action();
        duringPause = std::move(action);
    }
}

CThread::CThread() : queue_(nullptr), capacity_(0) {
    living.push_back(this);
}

CThread::~CThread() {
    std::erase(living, this);
}

bool CThread::OnTask(void* /*event*/) {
    return true;
}

bool CThread::OnTask() {
    return true;
}

bool CThread::Start() {
    return true;
}

void CThread::Stop() {}

void CThread::SetThreadType(ThreadType_t /*type*/, long /*idleTime*/) {}

namespace support {

const std::vector<CThread*>& workers() {
    return living;
}

int waitingItems() {
    return waiting;
}

DuringPauses::DuringPauses(std::function<void()> action) {
    duringPause = std::move(action);
}

DuringPauses::~DuringPauses() {
    duringPause = nullptr;
}

}  // namespace support
