#pragma once

#include <functional>
#include <vector>

#include "thread/Thread.h"

namespace support {

/// Whatever links hand_run_workers.cpp in gets workers without threads, whose
/// cycles the test runs itself, and pauses that take no time.

/// The workers that live, oldest first.
const std::vector<CThread*>& workers();

/// The items that keep some loop from resting.
int waitingItems();

/// While one lives, the pause at the start of a cycle is a call of `action`: the
/// one way to act between two cycles of a loop that does not return. Pauses of
/// cycles that the action runs itself are none. One at a time.
class DuringPauses {
  public:
    explicit DuringPauses(std::function<void()> action);
    ~DuringPauses();
    DuringPauses(const DuringPauses&) = delete;
    DuringPauses& operator=(const DuringPauses&) = delete;
};

/// The next time that an item wakes some loop, `action` runs once, on the thread that
/// has queued the item. One at a time.
class AtNextWake {
  public:
    explicit AtNextWake(std::function<void()> action);
    ~AtNextWake();
    AtNextWake(const AtNextWake&) = delete;
    AtNextWake& operator=(const AtNextWake&) = delete;
};

}  // namespace support
