#pragma once

#include <sched.h>

#include <string>

#include "bench/system/machine/crowd.h"

namespace bench {

/// The processors and priorities of the threads of a run, the same for all contestants.
///
/// Without a crowd the cards and the client are the instrument: they represent a wire and
/// another machine, so they have one processor for themselves, and the cards come before
/// the client. The kernel's workers carry the bytes through a pseudo-terminal, where a real
/// adapter has an interrupt, so the instrument's processor has them too: elsewhere they
/// would wait up to 4 ms a byte until a contestant that reads without a pause is
/// interrupted. Contestants have the other processors and run as a user would start them.
///
/// In a crowd no thread is favoured: each has ordinary priority, and the scheduler chooses
/// among all processors, or among the only one, to which the kernel's workers then go too.
class Placement {
  public:
    /// Remembers the processors that the calling thread may use. Sends the kernel's
    /// workers, where the system allows that, to the instrument's processor or to the only
    /// one; they stay there until tools/bench brings them back. With one processor for
    /// everything the calling thread keeps to that processor from now on.
    explicit Placement(const Crowd& crowd);

    /// Each applies to the calling thread and to what that thread starts from now on.
    void asSlave() const;
    void asClient() const;
    void asContestant() const;

    std::string describe() const;

  private:
    void take(const cpu_set_t& processors, int priority) const;

    Crowd crowd_;
    cpu_set_t instrument_{};
    cpu_set_t contestants_{};
    bool realTime_ = false;
    bool workersMoved_ = false;
};

}  // namespace bench
