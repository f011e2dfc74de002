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
    /// Connects, trying again while the port is refused; throws
    /// std::runtime_error when that lasts longer than `patience`.
    static TcpClient connect(std::uint16_t port, std::chrono::milliseconds patience = kPatience);
    /// One attempt; nothing when the port is refused.
    static std::optional<TcpClient> tryConnect(std::uint16_t port);

    /// Sends the bytes in one packet; throws std::runtime_error on failure.
    void send(std::string_view bytes);
    /// What has come since the last call, or the first `most` bytes of it.
    std::string receive(std::size_t most = std::string::npos);
    /// Waits until there is something to receive, or the other side has closed;
    /// false when `patience` passes first.
    bool waitReadable(std::chrono::milliseconds patience = kPatience) const;
    /// What comes until it ends in `end`, or until `patience` has passed.
    std::string receiveUntil(std::string_view end, std::chrono::milliseconds patience = kPatience);
    /// True once the other side has closed or reset the connection; known after
    /// a receive.
    bool closedByPeer() const { return closedByPeer_; }
    /// True when the other side's program has read every byte sent, or has
    /// closed the connection: only then does the next send make a chunk of its
    /// own.
    bool peerHasReadAll() const;
    /// Closes by a reset, as a client that crashed does.
    void reset();
    /// From now on nothing reaches it and it says nothing, not even that it is
    /// gone: as a machine that has lost its power. Lasts as long as the object.
    void vanish() const;

  private:
    explicit TcpClient(zolt_os::Descriptor socket) : socket_(std::move(socket)) {}

    zolt_os::Descriptor socket_;
    bool closedByPeer_ = false;
};

}  // namespace support
