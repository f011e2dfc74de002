#pragma once

#include <sched.h>

#include <string>

namespace bench {

/// Where the threads of the run go, the same for all contestants. The slave and
/// the client are the instrument: what they do stands for a wire and for another
/// machine, so they keep to one processor and come before everything else on it,
/// the slave first. Contestants run as a user would start them, on any processor.
class Placement {
  public:
    /// Remembers on which processors the calling thread may run.
    Placement();

    /// Each for the calling thread and what it starts from now on.
    void asSlave() const;
    void asClient() const;
    void asContestant() const;

    std::string describe() const;

  private:
    void take(const cpu_set_t& processors, int priority) const;

    cpu_set_t all_{};
    cpu_set_t instrument_{};
    bool realTime_ = false;
};

}  // namespace bench
