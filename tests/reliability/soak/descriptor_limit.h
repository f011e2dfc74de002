#pragma once

#include <sys/resource.h>
#include <sys/types.h>

#include <optional>

#include "tests/support/wait.h"

namespace reliability {

/// Limits the number of the highest descriptor that the daemon may have, for some time.
class DescriptorLimit {
  public:
    /// Sets a limit, unless one is set already. Throws std::system_error.
    void set(pid_t daemon, rlim_t limit, std::chrono::milliseconds duration);
    /// Lifts the limit if its time is over; true if it did.
    bool tick();
    /// Lifts the limit now; true if there was one.
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
