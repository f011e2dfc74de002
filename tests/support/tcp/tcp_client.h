#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "lib/os/descriptor.h"
#include "tests/support/wait.h"

namespace support {

/// A client of one of the daemon's TCP ports, on the loopback interface.
class TcpClient {
  public:
    /// Connects, trying again while the port is refused. Throws std::runtime_error if that
    /// lasts longer than `patience`.
    static TcpClient connect(std::uint16_t port, std::chrono::milliseconds patience = kPatience);
    /// Makes one attempt; returns nothing if the port is refused.
    static std::optional<TcpClient> tryConnect(std::uint16_t port);

    /// Sends the bytes in one packet. Throws std::runtime_error.
    void send(std::string_view bytes);
    /// The bytes since the last call, but not more than `most`.
    std::string receive(std::size_t most = std::string::npos);
    /// Waits until there is something to receive or the other side has closed. False if
    /// `patience` has passed first.
    bool waitReadable(std::chrono::milliseconds patience = kPatience) const;
    /// Receives until the bytes end in `end` or `patience` has passed.
    std::string receiveUntil(std::string_view end, std::chrono::milliseconds patience = kPatience);
    /// True if receive() has found that the other side has closed or reset the connection.
    bool closedByPeer() const { return closedByPeer_; }
    /// True if the program on the other side has read every byte that was sent, or has closed
    /// the connection: only then does that program read the next packet by itself.
    bool peerHasReadAll() const;
    /// Closes the connection by a reset, as the system does for a crashed client.
    void reset();
    /// Behaves like a machine that has lost its power: from now on this client receives and
    /// sends nothing, not even the end of the connection, until the object goes.
    void vanish() const;

  private:
    explicit TcpClient(zolt_os::Descriptor socket) : socket_(std::move(socket)) {}

    zolt_os::Descriptor socket_;
    bool closedByPeer_ = false;
};

}  // namespace support
