#pragma once

#include <functional>
#include <mutex>
#include <utility>
#include <vector>

namespace support {

/// While one lives, the program's pauses of whole seconds are written down and
/// return at once. Works by standing in for sleepsec: the test program compiles
/// recorded_pauses.cpp and is linked with --wrap=_Z8sleepseci. One at a time;
/// any thread.
class RecordedPauses {
  public:
    RecordedPauses();
    ~RecordedPauses();
    RecordedPauses(const RecordedPauses&) = delete;
    RecordedPauses& operator=(const RecordedPauses&) = delete;

    /// The pauses since the last call, in seconds.
    std::vector<int> take();
    /// Lets something happen during the next pause, once; on its thread.
    void duringNext(std::function<void()> action);

    // For the wrapped call.
    void pause(int seconds);

  private:
    std::mutex lock_;
    std::vector<int> pauses_;
    std::function<void()> action_;
};

}  // namespace support
