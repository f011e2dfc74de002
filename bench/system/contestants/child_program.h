#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

#include "bench/system/machine/placement.h"

namespace bench {

/// A program that runs on a contestant's processors while the object lives.
class ChildProgram {
  public:
    ChildProgram(const std::vector<std::string>& command, const Placement& placement);
    /// Ends the program by SIGTERM, or by SIGKILL if that does not help.
    ~ChildProgram();
    ChildProgram(const ChildProgram&) = delete;
    ChildProgram& operator=(const ChildProgram&) = delete;

    pid_t number() const { return number_; }
    /// What the program has printed on standard error.
    std::string errors() const;

  private:
    pid_t number_ = -1;
};

}  // namespace bench
