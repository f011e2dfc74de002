#pragma once

#include "apps/zoltctl/failure.h"
#include "apps/zoltctl/ports/descriptor.h"

namespace ctl {

/// While it lives, SIGINT and SIGTERM end nothing by themselves but make a
/// descriptor readable. Those that were ignored at the start stay ignored, as for
/// a job in the background of a script.
class StopSignals {
  public:
    StopSignals();
    ~StopSignals();
    StopSignals(const StopSignals&) = delete;
    StopSignals& operator=(const StopSignals&) = delete;

    int descriptor() const { return signals_.get(); }
    /// How the program ends by the signal that has come. A second one ends it at
    /// once.
    Status take();

  private:
    Descriptor signals_;
};

}  // namespace ctl
