#pragma once

#include <functional>

namespace support {

/// As long as such an object exists, a loop's rest does not end by itself within the patience
/// of a test. Only one may exist at a time.
/// REQUIRES: the program is linked with zolt_replaces(rests).
class LongRests {
  public:
    LongRests();
    ~LongRests();
    LongRests(const LongRests&) = delete;
    LongRests& operator=(const LongRests&) = delete;

    /// Runs `cycle` on a thread of its own, calls `wakeUp` when the cycle has begun to
    /// rest, and waits for the end of the cycle. True if it was `wakeUp` that ended the
    /// rest.
    bool endsWith(const std::function<void()>& cycle, const std::function<void()>& wakeUp) const;
};

}  // namespace support
