#pragma once

#include <atomic>
#include <chrono>
#include <cstdint>

/// The pause at the start of a loop's cycle, the count of the items that wait in the
/// queues which the loop reads, and the notice that a field which it reads has changed.
///
/// The system ends a sleep up to 50 microseconds late, its usual timer slack. A pause
/// shorter than that would take many times its length, and a loop with nothing to do
/// would still spend most of a processor on looking for work. So a short pause is one
/// of two things: with items waiting, or after a change, the loop spends it on the
/// processor; otherwise the loop rests, which means that it sleeps until there is work.
class LoopPause {
  public:
    /// A loop that rests still wakes this often, as at the lowest speed, because the
    /// signal handler wakes no loop and neither does CThread::Stop().
    static constexpr std::chrono::microseconds kLongestRest{5000};

    explicit LoopPause(std::chrono::nanoseconds longestRest = kLongestRest);
    /// REQUIRES: no thread is inside a call.
    ~LoopPause();
    LoopPause(const LoopPause&) = delete;
    LoopPause& operator=(const LoopPause&) = delete;

    /// Any thread calls this once for each item, before the loop can take the item.
    void itemAdded();
    /// The loop calls this once for each item that it takes.
    void itemTaken();
    /// Any thread calls this after itemAdded(): a loop that rests wakes up.
    void wake();
    /// Any thread calls this after it has changed a field that the loop reads in each
    /// cycle: a loop that rests wakes up, and a loop that is under way does not rest
    /// before its next cycle.
    void announceChange();

    /// The loop pauses for at least this time. A negative number is taken for one
    /// without a sign and lasts half an hour and more. When the pause is a short one,
    /// the rest also ends as soon as something can be read from `descriptor`, unless
    /// that is negative. A signal may end a sleep early.
    void pause(std::int32_t microseconds, int descriptor = -1);
    /// The same for a loop that cannot take its items for now: they do not keep it
    /// from resting.
    void pauseWithoutWork(std::int32_t microseconds);

  private:
    enum class Items { kCount, kStay };

    void pauseWith(std::int32_t microseconds, Items items, int descriptor);
    void rest(int descriptor);

    const std::chrono::nanoseconds longestRest_;
    /// Wakes the loop that rests. The value is -1 when the system had no descriptor
    /// left; such a loop never rests.
    const int event_;
    std::atomic<int> items_{0};
    /// A change that no cycle of the loop has followed yet.
    std::atomic<bool> changed_{false};
    std::atomic<bool> resting_{false};
};
