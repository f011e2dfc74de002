#pragma once

#include <sys/resource.h>
#include <sys/types.h>

#include <optional>

#include "tests/support/wait.h"

namespace reliability {

/// Lets the daemon have no descriptor with a higher number for a while.
class DescriptorLimit {
  public:
    /// Nothing when one is in force. Throws std::system_error.
    void set(pid_t daemon, rlim_t limit, std::chrono::milliseconds duration);
    /// Takes the limit back when its time is over; true then.
    bool tick();
    /// Takes it back at once; true when there was one.
    bool lift();

  private:
    struct InForce {
        pid_t daemon;
        rlimit usual;
        support::Clock::time_point end;
    };

    std::optional<InForce> inForce_;
};

}  // namespace reliability
