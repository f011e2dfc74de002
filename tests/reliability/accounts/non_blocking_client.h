#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <utility>

#include "lib/os/descriptor.h"

namespace reliability {

/// A client of one of the daemon's ports that never blocks, so that one thread can serve
/// several of them: a port that does not answer, or a daemon that does not read, holds up
/// no other client. support::TcpClient is the one for tests that wait for one reply at a
/// time.
class NonBlockingClient {
  public:
    explicit NonBlockingClient(std::uint16_t port) : port_(port) {}

    /// From now on `observer` is called with what this client does, and when its connection
    /// ends.
    void setObserver(std::function<void(const std::string&)> observer) {
        observer_ = std::move(observer);
    }

    /// Starts to connect; tick() tries again as long as the port is refused. With a small
    /// window the daemon blocks soon if this client does not read.
    void connect(bool smallWindow = false);
    /// Goes on connecting, or reads. To be called every few milliseconds.
    void tick();
    /// Sends the bytes. Returns false if the system did not take all of them; the rest is
    /// dropped.
    bool send(std::string_view bytes);
    void close();
    /// Closes the connection by a reset, as the system does for a crashed client.
    void reset();
    /// Stops reading, or goes on with it.
    void stall(bool stalled);

    /// True after connect() until the connection ends.
    bool wanted() const { return wanted_; }
    /// True if there is a connection, whether or not the daemon has accepted it.
    bool connected() const { return socket_.valid() && !connecting_; }
    /// True if the daemon has greeted this client.
    bool served() const { return served_; }
    bool stalled() const { return stalled_; }
    /// True if the daemon has read every byte that was sent.
    bool hasBeenRead() const;
    /// The number of connections that the daemon has greeted.
    std::size_t timesServed() const { return timesServed_; }

    /// Everything that was received and not taken yet.
    const std::string& received() const { return received_; }
    std::string take();

  private:
    void noteDown(const std::string& what) const;
    void begin();
    void finishConnect();
    void drop();
    void read();
    void lookForGreeting();

    std::uint16_t port_;
    std::function<void(const std::string&)> observer_;
    zolt_os::Descriptor socket_;
    bool wanted_ = false;
    bool connecting_ = false;
    bool smallWindow_ = false;
    bool stalled_ = false;
    bool served_ = false;
    std::size_t timesServed_ = 0;
    std::string received_;
};

}  // namespace reliability
