#pragma once

#include <sched.h>

#include <string>

namespace bench {

/// Where the threads of the run go, the same for all contestants. The slave and
/// the client are the instrument: what they do stands for a wire and for another
/// machine, so they have one processor for themselves and the slave comes before the
/// client. What carries bytes through a pseudo-terminal is a worker of the kernel,
/// where a real adapter has an interrupt: it goes to the instrument's processor, too.
/// Elsewhere it would wait behind a contestant that reads without a pause, up to 4 ms
/// a byte. Contestants have the other processors and run as a user would start them.
class Placement {
  public:
    /// Remembers on which processors the calling thread may run, and sends the
    /// kernel's workers to the last of them for good, where that is allowed;
    /// tools/bench lets them go again.
    Placement();

    /// Each for the calling thread and what it starts from now on.
    void asSlave() const;
    void asClient() const;
    void asContestant() const;

    std::string describe() const;

  private:
    void take(const cpu_set_t& processors, int priority) const;

    cpu_set_t instrument_{};
    cpu_set_t contestants_{};
    bool realTime_ = false;
    bool workersMoved_ = false;
};

}  // namespace bench
