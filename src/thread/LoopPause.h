#pragma once

#include <atomic>
#include <chrono>
#include <cstdint>

/// The pause at the start of a loop's cycle, and the count of the items that wait
/// in the queues which the loop reads.
///
/// The system ends a sleep up to 50 microseconds late, its usual timer slack. A pause
/// shorter than that would take many times its length, and a loop with nothing to do
/// would still spend most of a processor on looking for work. So a short pause is one
/// of two things: with items waiting it is spent on the processor; with none the loop
/// sleeps until there is one.
class LoopPause {
  public:
    /// A loop with nothing to do looks around so often all the same, as at the lowest
    /// speed: a signal or a new setting is not announced.
    static constexpr std::chrono::microseconds kLongestRest{5000};

    explicit LoopPause(std::chrono::nanoseconds longestRest = kLongestRest);
    /// No thread may be inside a call.
    ~LoopPause();
    LoopPause(const LoopPause&) = delete;
    LoopPause& operator=(const LoopPause&) = delete;

    /// Any thread, once for each item, before the loop can take it.
    void itemAdded();
    /// The loop, once for each item.
    void itemTaken();
    /// Any thread, behind itemAdded(): wakes the loop when it sleeps.
    void wake();

    /// The loop: pauses at least so many microseconds. A negative number is taken for
    /// one without sign and lasts half an hour and more. When the pause is a short one,
    /// the sleep without work ends also when something can be read from `descriptor`,
    /// unless that is negative. A signal may end a sleep early.
    void pause(std::int32_t microseconds, int descriptor = -1);
    /// The same for a loop that can do nothing about its items for now: they stay.
    void pauseWithoutWork(std::int32_t microseconds);

  private:
    enum class Items { kCount, kStay };

    void pauseWith(std::int32_t microseconds, Items items, int descriptor);
    void rest(int descriptor);

    const std::chrono::nanoseconds longestRest_;
    /// Wakes the sleeping loop; -1 when the system had none left, and then the loop
    /// does not rest.
    const int event_;
    std::atomic<int> items_{0};
    std::atomic<bool> resting_{false};
};
