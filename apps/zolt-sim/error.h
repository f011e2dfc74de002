#pragma once

#include <stdexcept>
#include <string>

namespace zolt_sim {

/// How the program ends; docs/simulated-bus.md lists the numbers.
enum class ExitStatus { kDone = 0, kCannotRun = 1, kWrongUse = 2 };

/// The only error class of the simulator; a failed system call may throw
/// std::system_error instead. what() is a message for the user: without the program's
/// name and without a line feed. A control reports the message as its answer, a file's
/// reader puts the place before it, and the program ends with the message and the
/// status.
class Error : public std::runtime_error {
  public:
    explicit Error(const std::string& message, ExitStatus status = ExitStatus::kCannotRun)
        : std::runtime_error(message), status_(status) {}

    ExitStatus status() const { return status_; }

  private:
    ExitStatus status_;
};

}  // namespace zolt_sim
