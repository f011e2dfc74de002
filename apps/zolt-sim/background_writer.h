#pragma once

#include <cstddef>
#include <deque>
#include <mutex>
#include <string>
#include <thread>

#include "lib/os/descriptor.h"
#include "lib/os/event.h"

namespace zolt_sim {

/// Writes texts to a descriptor from a thread of its own, so that a thread that traces
/// never waits for a terminal or a pipe.
class BackgroundWriter {
  public:
    /// The caller keeps the descriptor open as long as the writer lives.
    explicit BackgroundWriter(int descriptor);
    /// Writes what is queued, but gives a reader that does not read only one second.
    ~BackgroundWriter();
    BackgroundWriter(const BackgroundWriter&) = delete;
    BackgroundWriter& operator=(const BackgroundWriter&) = delete;

    /// Queues whole lines, line feeds included; never waits. While 100000 texts are
    /// queued, further ones are dropped and counted. The count is written as a line once
    /// there is room again. Any thread may call it.
    void write(const std::string& text);

  private:
    void run();
    /// Writes the text, or gives up and returns false.
    bool writeAll(const std::string& text);
    /// Waits until the descriptor takes more. False if the reader's time is over.
    bool awaitRoom();
    std::string takeQueued();

    const int descriptor_;
    /// Guards the queue and the count.
    std::mutex lock_;
    std::deque<std::string> queue_;
    std::size_t dropped_ = 0;
    /// Readable while texts are queued.
    zolt_os::Descriptor wakeUp_;
    zolt_os::Event stop_;
    /// The last member, because the thread uses all others.
    std::thread thread_;
};

}  // namespace zolt_sim
