#pragma once

#include <chrono>
#include <optional>

namespace zolt_os {

using Clock = std::chrono::steady_clock;
using Seconds = std::chrono::duration<double>;

/// The end of a wait. A descriptor that becomes readable can end the wait earlier.
class Deadline {
  public:
    /// `interrupt` is the descriptor that ends the wait early; -1 for none. The caller
    /// keeps it open as long as the deadline is used.
    explicit Deadline(Clock::time_point end, int interrupt = -1)
        : end_(end), interrupt_(interrupt) {}
    static Deadline in(Seconds time, int interrupt = -1) {
        return Deadline(Clock::now() + std::chrono::duration_cast<Clock::duration>(time),
                        interrupt);
    }

    Clock::time_point end() const { return end_; }
    int interrupt() const { return interrupt_; }

  private:
    Clock::time_point end_;
    int interrupt_;
};

/// The milliseconds until `end` as an argument for poll(2): rounded up, so that a caller
/// does not spin in the last millisecond, and at most a minute, so the caller checks the
/// time afterwards. Without an `end` -1, which poll(2) takes for "no limit".
int pollMilliseconds(std::optional<Clock::time_point> end);

/// Waits until `events` of poll(2) are there on a descriptor. False if the deadline has
/// passed or its interrupt came. Throws std::system_error.
bool waitFor(int descriptor, short events, const Deadline& deadline);

/// Waits for `time`. False if the deadline or its interrupt came first. Throws as
/// waitFor() does.
bool pauseFor(Seconds time, const Deadline& deadline);

}  // namespace zolt_os
