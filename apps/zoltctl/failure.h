#pragma once

#include <stdexcept>
#include <string>

namespace zoltctl {

/// The exit status of the program.
enum class Status : int {
    kDone = 0,
    kRefused = 1,    ///< the daemon or the card has refused
    kUsage = 2,      ///< wrong option, command or argument
    kNoDaemon = 3,   ///< unknown or unreachable host, connection refused
    kHeld = 4,       ///< another client holds the port
    kCut = 5,        ///< the connection ended too early
    kTimeout = 6,    ///< no answer in time
    kNotZolt = 7,    ///< the peer does not look like zolt
    kLocalFile = 8,  ///< the configuration, the output or a resource of this machine
    kInterrupted = 130,
    kOutputGone = 141,  ///< the reader of the output has left
    kTerminated = 143,
};

/// Ends the program with a status and one line on standard error, or without a line if
/// the text is empty.
class Failure : public std::runtime_error {
  public:
    Failure(Status status, const std::string& text) : std::runtime_error(text), status_(status) {}

    Status status() const { return status_; }

  private:
    Status status_;
};

}  // namespace zoltctl
