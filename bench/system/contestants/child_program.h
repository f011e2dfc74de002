#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

#include "bench/system/machine/placement.h"

namespace bench {

/// A program that runs, at the place of a contestant, as long as the object lives.
class ChildProgram {
  public:
    ChildProgram(const std::vector<std::string>& command, const Placement& placement);
    /// Ends it by SIGTERM, or by SIGKILL if that does not do.
    ~ChildProgram();
    ChildProgram(const ChildProgram&) = delete;
    ChildProgram& operator=(const ChildProgram&) = delete;

    pid_t number() const { return number_; }
    /// What it has printed on standard error.
    std::string errors() const;

  private:
    pid_t number_ = -1;
};

}  // namespace bench
