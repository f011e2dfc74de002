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

/// The daemon did not do what it has to; what() is the reason.
class Failure : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

/// How long the daemon may take over whatever is sure to come.
inline constexpr std::chrono::seconds kHang{60};

/// A daemon on a watched bus with one client on each port, in the private view
/// of this process. One thread; one at a time.
class WatchedDaemon {
  public:
    /// Starts both; the bus is at /dev/ttyUSB0. Throws std::runtime_error.
    WatchedDaemon(const support::DaemonSettings& settings, const std::string& busText);

    /// Lets the clients read; throws Failure when the daemon has ended.
    virtual void tick();
    /// Ticks until `done`; throws Failure ("WHAT does not come") after kHang.
    void await(const std::string& what, const std::function<bool()>& done);
    /// Waits until all three clients have been greeted, connecting those that are not.
    void serveClients();
    /// Types a command line on the console and waits until `reply` is part of what
    /// has come; what came is taken.
    void ask(const std::string& line, const std::string& reply);
    /// Waits until a card answers: then the link stands, and requests to cards that
    /// were typed before have been worked off.
    void findLink();
    /// Discovers the cards anew until the console lists every card of the
    /// traffic's bus: it looks one second after it has asked, and a busy machine may
    /// take longer.
    void findCards();

    /// Starts a daemon after stop. Throws Failure.
    void start();
    /// Ends the daemon; throws Failure when it does not end well or has printed
    /// anything as an error.
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

/// Reply lines as the console sends them, with its prompt at the end.
std::string consoleReply(const std::vector<std::string>& lines);

}  // namespace reliability
