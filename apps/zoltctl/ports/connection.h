// One TCP connection. Every wait has a deadline; a peer that is gone raises no
// signal.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "apps/zoltctl/failure.h"
#include "apps/zoltctl/ports/deadline.h"
#include "apps/zoltctl/ports/descriptor.h"
#include "apps/zoltctl/ports/resolver.h"

namespace ctl {

class Connection {
  public:
    /// Of an open non-blocking socket; `label` names the peer in failures.
    Connection(Descriptor socket, std::string label);

    /// In one piece: the daemon takes what it reads at once for a line. Throws
    /// Failure.
    void send(std::string_view bytes, const Deadline& deadline);

    enum class Wait { kBytes, kEnd, kTimeout };
    /// Appends what has come to `bytes`.
    Wait receive(std::string& bytes, const Deadline& deadline);
    /// The same of what is already there; kTimeout when that is nothing.
    Wait receiveNow(std::string& bytes);
    /// Whether the end that was found was a reset: the peer has then not read all
    /// that was sent.
    bool wasReset() const { return reset_; }

    /// Tells the peer that nothing more is sent.
    void halfClose();
    /// Ends the connection in a way that the daemon has noticed when this returns:
    /// the next client then finds the port closed for a while, instead of
    /// waiting at it and being turned away. Failures do not matter any more.
    void leave();
    int descriptor() const { return socket_.get(); }
    const std::string& label() const { return label_; }

    Failure cut(const std::string& when) const;
    Failure timedOut(const std::string& what) const;

  private:
    Descriptor socket_;
    std::string label_;
    bool reset_ = false;
};

/// What became of connecting to a list of addresses.
struct ConnectResult {
    Descriptor socket;  ///< non-blocking; none when it failed
    /// 0, or why the last address failed; ETIMEDOUT when the time was up.
    int error = 0;
    /// At least one address refused: something may come to listen there.
    bool refused = false;
    /// An address of this machine did not answer, which only a full queue of
    /// waiting clients brings about.
    bool queueFull = false;
};

/// Tries the addresses one after the other, so that the daemon, which serves one
/// client at a time, never sees two connections of one client.
ConnectResult connectTo(const std::vector<Address>& addresses, const Deadline& deadline);

}  // namespace ctl
