#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <utility>

#include "lib/os/descriptor.h"

namespace reliability {

/// A client of one of the daemon's ports that never blocks: a port that does not
/// answer, or a daemon that does not read, must not hold up the others.
class NonBlockingClient {
  public:
    explicit NonBlockingClient(std::uint16_t port) : port_(port) {}

    /// Is told from now on what this client does, and when its connection ends.
    void tell(std::function<void(const std::string&)> observer) { observer_ = std::move(observer); }

    /// Begins to connect; tick goes on with it for as long as the port is refused.
    /// A small window makes the daemon block early when nothing is read.
    void connect(bool smallWindow = false);
    /// Connects and reads; to be called every few milliseconds.
    void tick();
    /// What the system does not take at once is dropped; false then.
    bool send(std::string_view bytes);
    void close();
    /// Leaves by a reset, as a client that crashed does.
    void reset();
    /// A stalled client reads nothing until it is told to go on.
    void stall(bool stalled);

    /// connect has been called, and the connection has not ended since.
    bool wanted() const { return wanted_; }
    /// The connection stands; the daemon need not have taken it yet.
    bool connected() const { return socket_.valid() && !connecting_; }
    /// The daemon has greeted it.
    bool served() const { return served_; }
    bool stalled() const { return stalled_; }
    /// True when the daemon has read every byte sent.
    bool hasBeenRead() const;
    /// How many connections the daemon has greeted.
    std::size_t timesServed() const { return timesServed_; }

    /// Everything received and not taken yet.
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
