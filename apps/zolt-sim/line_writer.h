// Writes lines to a descriptor from a thread of its own, so that nobody who
// traces ever waits for a terminal or a pipe.
#pragma once

#include <deque>
#include <mutex>
#include <string>
#include <thread>

#include "apps/zolt-sim/line/descriptor.h"

namespace sim {

class LineWriter {
  public:
    // Does not own the descriptor, which must outlive the writer.
    explicit LineWriter(int descriptor);
    // Writes what is queued, but waits for a reader that does not read only for a second.
    ~LineWriter();
    LineWriter(const LineWriter&) = delete;
    LineWriter& operator=(const LineWriter&) = delete;

    // Any thread; never waits. `text`: whole lines, line feeds included. With
    // 100000 texts queued the next are dropped and counted; the count is written
    // as a line once there is room again.
    void write(const std::string& text);

  private:
    void run();
    // Waits for the descriptor or the destructor; false when it is time to give up.
    bool awaitRoom();
    std::string takeQueued();

    const int descriptor_;
    std::mutex lock_;
    std::deque<std::string> queue_;
    std::size_t dropped_ = 0;
    Descriptor wakeUp_;  // readable while lines are queued
    StopEvent stop_;
    std::thread thread_;  // last: runs on all the others
};

}  // namespace sim
