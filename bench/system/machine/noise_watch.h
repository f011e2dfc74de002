#pragma once

#include <array>

#include "bench/report/report.h"
#include "bench/system/basics/clock.h"

namespace bench {

/// Measures what else the machine does during the stretches.
class NoiseWatch {
  public:
    /// Call this when a stretch begins.
    void begin();
    /// Call this when the stretch has ended, and all that was started in it.
    void end();

    Noise noise() const;

  private:
    struct Look {
        Time time;
        /// Busy seconds of all processors together; the rest of the time they were idle.
        double busy = 0;
        double stolen = 0;
        /// Processor seconds of this process and of its children that have ended.
        double own = 0;
    };
    static Look look();

    Look begin_;
    double seconds_ = 0;
    double stolen_ = 0;
    double other_ = 0;
    Noise worst_;
};

}  // namespace bench
