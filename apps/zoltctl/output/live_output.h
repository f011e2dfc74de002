#pragma once

#include <memory>

#include "apps/zoltctl/output/line_format.h"
#include "lib/os/deadline.h"

namespace zoltctl {

/// Writes lines on a thread of its own: a caller that adds a line never waits for the
/// output. All calls come from one thread.
class LiveOutput {
  public:
    /// Starts the thread, which calls format->prepare() and then format->format() for each
    /// line.
    explicit LiveOutput(std::shared_ptr<LineFormat> format);
    LiveOutput(const LiveOutput&) = delete;
    LiveOutput& operator=(const LiveOutput&) = delete;

    void add(TimedLine line);
    /// A descriptor that becomes readable when the output has failed; finish() then throws.
    int failed() const;
    /// Makes the descriptor readable that LineFormat::prepare() was given.
    void hurry();
    /// Returns when all lines are written. Throws Failure if the output has failed or takes
    /// nothing for `patience`.
    void finish(zolt_os::Seconds patience);

  private:
    struct Shared;
    /// The output thread holds it, too: a reader that takes nothing can keep that thread
    /// waiting until the program ends.
    std::shared_ptr<Shared> shared_;
};

}  // namespace zoltctl
