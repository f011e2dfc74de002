#pragma once

#include "apps/zoltctl/failure.h"
#include "lib/os/descriptor.h"

namespace zoltctl {

/// As long as it exists, SIGINT and SIGTERM make a descriptor readable instead of ending
/// the program. A signal that was ignored at the start stays ignored, as for a background
/// job of a script. REQUIRES: it is constructed before other threads are started.
class StopSignals {
  public:
    StopSignals();
    ~StopSignals();
    StopSignals(const StopSignals&) = delete;
    StopSignals& operator=(const StopSignals&) = delete;

    int descriptor() const { return signals_.get(); }
    /// The exit status for the signal that has come. After this call a second signal ends
    /// the program at once.
    Status take();

  private:
    zolt_os::Descriptor signals_;
};

}  // namespace zoltctl
