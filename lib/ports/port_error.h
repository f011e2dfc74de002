#pragma once

#include <stdexcept>
#include <string>

/// The daemon's three ports as a client sees them.
///
/// This folder knows no sockets, no clock and no threads: whoever has received bytes
/// hands them over in pieces of any size, and the time is an argument. The folder
/// blocking/ adds connections that wait.
namespace zolt_ports {

/// Why something at a port has failed.
enum class Reason {
    kBadLine,      ///< the daemon would not take the line as one
    kNoPort,       ///< no port number is known
    kUnreachable,  ///< unknown host, no route, or connection refused
    kHeld,         ///< another client holds the port
    kCut,          ///< the connection ended too early
    kTimeout,      ///< no answer in time
    kNotZolt,      ///< bytes that no zolt sends
    kRefused,      ///< the daemon or the card has refused the command
    kNotKnown,     ///< the daemon does not know the command
    kNoLineEnd,    ///< the daemon takes none of the usual line ends
    /// The interrupt of a Deadline came between two attempts to open a port. In any other
    /// wait the interrupt counts as the end of the time: kHeld before the banner, kTimeout
    /// after it.
    kInterrupted,
};

/// A failure at a port. The text is one line for people, without control characters;
/// it is empty for kInterrupted.
class PortError : public std::runtime_error {
  public:
    PortError(Reason reason, const std::string& text) : std::runtime_error(text), reason_(reason) {}

    Reason reason() const { return reason_; }

  private:
    Reason reason_;
};

/// The error for bytes that no zolt sends: "SUBJECT does not look like zolt: EVIDENCE".
PortError notZolt(const std::string& subject, const std::string& evidence);

}  // namespace zolt_ports
