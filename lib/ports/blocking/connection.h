#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "lib/os/deadline.h"
#include "lib/os/descriptor.h"
#include "lib/ports/blocking/resolver.h"
#include "lib/ports/port_error.h"

namespace zolt_ports {

/// One TCP connection. Every wait has a deadline, and a peer that is gone raises no
/// signal. Used by one thread at a time.
class Connection {
  public:
    /// Takes over a connected non-blocking socket. `label` names the peer in errors.
    Connection(zolt_os::Descriptor socket, std::string label);

    /// Sends the bytes in one piece, because the daemon takes what it reads at once for
    /// one line. Throws PortError.
    void send(std::string_view bytes, const zolt_os::Deadline& deadline);

    enum class Wait { kBytes, kEnd, kTimeout };
    /// Waits for bytes and appends them to `bytes`.
    Wait receive(std::string& bytes, const zolt_os::Deadline& deadline);
    /// Appends the bytes that are there already; kTimeout if there are none.
    Wait receiveNow(std::string& bytes);
    /// True if the end that was found was a reset: the peer has then not read all that
    /// was sent.
    bool wasReset() const { return reset_; }

    /// Tells the peer that nothing more is sent.
    void halfClose();
    /// Ends the connection so that the daemon has noticed it when this returns. The next
    /// client then finds the port closed for a while, instead of waiting there and being
    /// turned away. Failures no longer matter and are ignored.
    void leave();
    int descriptor() const { return socket_.get(); }
    const std::string& label() const { return label_; }

    /// "LABEL: the connection ended WHEN"
    PortError cut(const std::string& when) const;
    /// "LABEL WHAT in time"
    PortError timedOut(const std::string& what) const;

  private:
    zolt_os::Descriptor socket_;
    std::string label_;
    bool reset_ = false;
};

/// The outcome of connecting to a list of addresses.
struct ConnectResult {
    zolt_os::Descriptor socket;  ///< non-blocking; none if it failed
    /// The error of the last address: 0 for none, ETIMEDOUT if the deadline passed.
    int error = 0;
    /// At least one address refused: something may begin to listen there.
    bool refused = false;
    /// An address of this machine did not answer, which happens only when the queue of
    /// waiting clients is full.
    bool queueFull = false;
};

/// Tries the addresses one after the other: the daemon serves one client at a time and
/// must not see two connections of one client.
ConnectResult connectTo(const std::vector<Address>& addresses, const zolt_os::Deadline& deadline);

}  // namespace zolt_ports
