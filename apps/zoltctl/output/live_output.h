// Lines that are written while others come: whoever adds one never waits for the
// output.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "apps/zoltctl/ports/deadline.h"

namespace ctl {

class LiveOutput {
  public:
    /// `before` runs first, beside the caller; until it returns no line is
    /// written. It must come to an end by itself; its argument becomes readable
    /// when it should hurry.
    explicit LiveOutput(std::function<void(int hurry)> before);
    LiveOutput(const LiveOutput&) = delete;
    LiveOutput& operator=(const LiveOutput&) = delete;

    /// Adds a line without its line feed. It is made beside the caller, after
    /// `before`.
    void add(std::function<std::string()> line);
    /// Readable once the output has failed; finish() then tells how.
    int failed() const;
    void hurry();
    /// Returns when all lines are written. Throws Failure when the output has
    /// failed or takes nothing for `patience`.
    void finish(Seconds patience);

  private:
    struct Shared;
    /// Also held by the thread that writes, which a reader who takes nothing can
    /// keep for ever.
    std::shared_ptr<Shared> shared_;
};

}  // namespace ctl
