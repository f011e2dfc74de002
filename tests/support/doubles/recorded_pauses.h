#pragma once

#include <functional>
#include <mutex>
#include <utility>
#include <vector>

namespace support {

/// As long as such an object exists, the pauses of whole seconds are recorded and return at
/// once. Only one may exist at a time; any thread may pause.
/// REQUIRES: the program is linked with zolt_replaces(pauses).
class RecordedPauses {
  public:
    RecordedPauses();
    ~RecordedPauses();
    RecordedPauses(const RecordedPauses&) = delete;
    RecordedPauses& operator=(const RecordedPauses&) = delete;

    /// The pauses since the last call, in seconds.
    std::vector<int> take();
    /// Calls `action` once during the next pause, on the thread that pauses.
    void duringNext(std::function<void()> action);

    /// The replacement of sleepsec() calls this.
    void pause(int seconds);

  private:
    std::mutex lock_;
    std::vector<int> pauses_;
    std::function<void()> action_;
};

}  // namespace support
