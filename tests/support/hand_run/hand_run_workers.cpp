#include "tests/support/hand_run/hand_run_workers.h"

#include <algorithm>
#include <map>
#include <utility>

#include "common/pauses.h"
#include "thread/loop_pause.h"

namespace {

std::vector<CThread*> living;
std::function<void()> duringPause;
std::function<void()> atNextWake;
/// The number of waiting items, by the pause of the loop that will take them.
std::map<const LoopPause*, int> waiting;

}  // namespace

// The definitions below take the place of those in the daemon's libraries: the
// linker takes a file out of a library only for what is still missing.

void sleepsec(int /*seconds*/) {}

void Sleep(unsigned int /*n*/) {}

void spinFor(long /*nanoseconds*/) {}

LoopPause::LoopPause(std::chrono::nanoseconds longestRest) : longestRest_(longestRest), event_(-1) {
    waiting[this] = 0;
}

LoopPause::~LoopPause() {
    waiting.erase(this);
}

void LoopPause::itemAdded() {
    ++waiting.at(this);
}

void LoopPause::itemTaken() {
    --waiting.at(this);
}

void LoopPause::wake() {
    if (const std::function<void()> action = std::exchange(atNextWake, nullptr)) {
        action();
    }
}

void LoopPause::announceChange() {}

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
    int all = 0;
    for (const auto& [pause, items] : waiting) all += items;
    return all;
}

DuringPauses::DuringPauses(std::function<void()> action) {
    duringPause = std::move(action);
}

DuringPauses::~DuringPauses() {
    duringPause = nullptr;
}

AtNextWake::AtNextWake(std::function<void()> action) {
    atNextWake = std::move(action);
}

AtNextWake::~AtNextWake() {
    atNextWake = nullptr;
}

}  // namespace support
