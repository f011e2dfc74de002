#pragma once

#include <array>

#include "bench/report/report.h"
#include "bench/system/basics/clock.h"

namespace bench {

/// Watches what else the machine does, from one look to the next.
class NoiseWatch {
  public:
    /// A stretch begins.
    void begin();
    /// The stretch ends; what was started in it has ended, too.
    void end();

    Noise noise() const;

  private:
    struct Look {
        Time time;
        /// Seconds of all processors together; the rest of the time they were idle.
        double busy = 0;
        double stolen = 0;
        /// Seconds of this process and of its children that have ended.
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
