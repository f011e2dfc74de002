// Until when a wait may last. No wait of this program is without one, except
// those for the next input change, for the user, and of watch and monitor for
// whoever reads them.
#pragma once

#include <chrono>

namespace ctl {

using Clock = std::chrono::steady_clock;
using Seconds = std::chrono::duration<double>;

class Deadline {
  public:
    /// `interrupt` is a descriptor that ends the wait early once it is readable;
    /// -1 for none.
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

/// Waits for `events` of poll(2) on a descriptor. False when the deadline has
/// passed or its interrupt has come.
bool waitFor(int descriptor, short events, const Deadline& deadline);

/// False when the deadline or its interrupt came first.
bool pauseFor(Seconds time, const Deadline& deadline);

}  // namespace ctl
