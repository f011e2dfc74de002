#pragma once

#include <chrono>
#include <random>

namespace bench {

/// Pauses that keep the measured events out of step with the bus. Each run has the same ones.
class RandomTimes {
  public:
    /// Evenly distributed from 0.3 ms to two cycles more than that.
    std::chrono::nanoseconds pause(double cycleSeconds) {
        constexpr double kLeast = 3e5;
        std::uniform_real_distribution<double> evenly(kLeast, kLeast + 2e9 * cycleSeconds);
        return std::chrono::nanoseconds(static_cast<long>(evenly(engine_)));
    }
    unsigned below(unsigned limit) {
        return std::uniform_int_distribution<unsigned>(0, limit - 1)(engine_);
    }

  private:
    std::mt19937 engine_;
};

}  // namespace bench
