#pragma once

#include <optional>
#include <string>
#include <vector>

#include "lib/os/deadline.h"
#include "lib/ports/blocking/opening.h"
#include "lib/ports/items.h"

namespace zolt_ports {

/// Reads an open IO or monitor port line by line. Used by one thread at a time.
class PortFollower {
  public:
    /// `separators` are as in LineReader.
    PortFollower(OpenPort port, const std::vector<std::string>& separators);

    /// The next line. Nothing if the deadline has passed or its interrupt came, but a line
    /// that has been received is returned first. Throws PortError if the connection ends
    /// or if the bytes are no lines of a daemon.
    std::optional<std::string> next(const zolt_os::Deadline& deadline);

    /// The same in two steps, for a caller that waits for several descriptors: receive()
    /// reads what is there without waiting, nextReceived() returns the lines of it.
    void receive();
    std::optional<std::string> nextReceived() { return lines_.next(); }
    int descriptor() const { return connection_.descriptor(); }

    /// The error for lines that did not come: "LABEL WHAT in time".
    PortError timedOut(const std::string& what) const { return connection_.timedOut(what); }
    /// Ends the connection as Connection::leave() does.
    void leave() { connection_.leave(); }

  private:
    Connection connection_;
    LineReader lines_;
};

}  // namespace zolt_ports
