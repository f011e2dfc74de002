#pragma once

#include <sys/types.h>

#include <vector>

namespace bench {

/// Processes that compute without a pause while the object lives. Each leads a session of
/// its own, as tests and daemons do: some systems share the processors out by sessions.
class Neighbours {
  public:
    /// REQUIRES: the calling process has no other thread yet. Throws Failure.
    explicit Neighbours(unsigned count);
    ~Neighbours();
    Neighbours(const Neighbours&) = delete;
    Neighbours& operator=(const Neighbours&) = delete;

  private:
    void end();

    std::vector<pid_t> processes_;
};

}  // namespace bench
