#pragma once

#include <functional>

namespace support {

/// While one lives, a loop's rest does not end by itself within the patience of a test.
/// Works by standing in for ppoll, so the test program is linked with --wrap=ppoll. One
/// at a time.
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
