#pragma once

#include <chrono>
#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

#include "tests/reliability/accounts/bus_watch.h"
#include "tests/reliability/accounts/non_blocking_client.h"
#include "tests/support/process/daemon_process.h"
#include "tests/support/process/daemon_settings.h"

namespace reliability {

/// Thrown when the daemon did not do what it has to do; what() is the reason.
class Failure : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

/// The longest time that the daemon may take for anything.
inline constexpr std::chrono::seconds kHang{60};

/// A daemon on a watched bus with one client on each port, in the private view of this
/// process. To be used by one thread; only one may exist at a time.
class WatchedDaemon {
  public:
    /// Starts the bus, at /dev/ttyUSB0, and the daemon. Throws std::runtime_error.
    WatchedDaemon(const support::DaemonSettings& settings, const std::string& busText);

    /// Lets the clients read. Throws Failure if the daemon has ended.
    virtual void tick();
    /// Ticks until `done` returns true. Throws Failure ("WHAT does not come") after kHang.
    void await(const std::string& what, const std::function<bool()>& done);
    /// Connects the clients that are not connected, and waits until all three are greeted.
    void serveClients();
    /// Sends a line to the console, waits until `reply` has come and drops all that was
    /// received there.
    void ask(const std::string& line, const std::string& reply);
    /// Waits until a card answers. Then the link is up, and all earlier requests to cards
    /// have been processed.
    void findLink();
    /// Repeats the discovery until the console lists every card of the traffic's bus. The
    /// console lists what has answered within a second, and a busy machine may take longer.
    void findCards();

    /// Starts the daemon again after stop(). Throws Failure.
    void start();
    /// Ends the daemon. Throws Failure if the daemon ends with another status than 0 or has
    /// written to its standard error.
    void stop();

    support::DaemonProcess& daemon() { return daemon_; }
    BusWatch& bus() { return bus_; }
    NonBlockingClient& cae() { return cae_; }
    NonBlockingClient& io() { return io_; }
    NonBlockingClient& mon() { return mon_; }

    virtual ~WatchedDaemon() = default;
    WatchedDaemon(const WatchedDaemon&) = delete;
    WatchedDaemon& operator=(const WatchedDaemon&) = delete;

  private:
    BusWatch bus_;
    support::DaemonProcess daemon_;
    NonBlockingClient cae_{support::kCaePort};
    NonBlockingClient io_{support::kIoPort};
    NonBlockingClient mon_{support::kMonPort};
};

/// The reply of the console with these lines and its prompt, as it comes on the port.
std::string consoleReply(const std::vector<std::string>& lines);

}  // namespace reliability
