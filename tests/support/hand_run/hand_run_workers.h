#pragma once

#include <functional>
#include <vector>

#include "thread/Thread.h"

namespace support {

/// A program with zolt_replaces(threads) has workers without threads, whose cycles the
/// test runs itself, and pauses that take no time.

/// All workers that exist, oldest first.
const std::vector<CThread*>& workers();

/// How many items keep a loop from resting.
int waitingItems();

/// While a DuringPauses exists, the pause at the start of a cycle calls `action`: the
/// one way to act between two cycles of a loop that does not return. Cycles that the
/// action itself runs have no pause. Only one may exist at a time.
class DuringPauses {
  public:
    explicit DuringPauses(std::function<void()> action);
    ~DuringPauses();
    DuringPauses(const DuringPauses&) = delete;
    DuringPauses& operator=(const DuringPauses&) = delete;
};

/// The next time that an item wakes some loop, `action` runs once, on the thread that
/// has queued the item. Only one may exist at a time.
class AtNextWake {
  public:
    explicit AtNextWake(std::function<void()> action);
    ~AtNextWake();
    AtNextWake(const AtNextWake&) = delete;
    AtNextWake& operator=(const AtNextWake&) = delete;
};

}  // namespace support
