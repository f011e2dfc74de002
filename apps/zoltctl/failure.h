#pragma once

#include <stdexcept>
#include <string>

namespace ctl {

/// How the program ends.
enum class Status : int {
    kDone = 0,
    kRefused = 1,    ///< by the daemon or the card
    kUsage = 2,      ///< option, command or argument
    kNoDaemon = 3,   ///< unknown or unreachable host, connection refused
    kHeld = 4,       ///< another client holds the port
    kCut = 5,        ///< the connection ended in mid-answer
    kTimeout = 6,    ///< no answer in time
    kNotZolt = 7,    ///< an answer that is none of the daemon's
    kLocalFile = 8,  ///< the configuration, or the output
    kInterrupted = 130,
    kOutputGone = 141,  ///< who read the output has left
    kTerminated = 143,
};

/// Ends the program with a status and one line on standard error; with an empty
/// text it ends without a word.
class Failure : public std::runtime_error {
  public:
    Failure(Status status, const std::string& text) : std::runtime_error(text), status_(status) {}

    Status status() const { return status_; }

  private:
    Status status_;
};

}  // namespace ctl
