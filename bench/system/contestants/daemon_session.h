#pragma once

#include <optional>
#include <string>

#include "bench/system/basics/tally.h"
#include "bench/system/cards/slave.h"
#include "tests/support/process/daemon_process.h"
#include "tests/support/tcp/tcp_client.h"

namespace bench {

/// Adds to a tally the links that were lost while the object lived, by the daemon's log.
class LinkWatch {
  public:
    explicit LinkWatch(Tally& tally);
    ~LinkWatch();
    LinkWatch(const LinkWatch&) = delete;
    LinkWatch& operator=(const LinkWatch&) = delete;

  private:
    Tally& tally_;
};

/// A daemon with a client on IO and one on the console, from its start to its end.
class DaemonSession {
  public:
    /// Returns when both clients are served and the slave's bus, if there is one, is
    /// discovered. Without `percent` the configuration names no speed. Throws Failure.
    /// The lost links are in `tally` when the session has ended or this has thrown.
    DaemonSession(const std::string& program, std::optional<int> percent, const Slave* slave,
                  const Placement& placement, Tally& tally);

    support::TcpClient& io() { return *io_; }
    pid_t number() const { return daemon_.number(); }

    /// Sends a command to the console; throws Failure unless the answer is `line`.
    void ask(const std::string& command, const std::string& line);
    void setSpeed(int percent);
    /// Switches polling on for the first `cards` addresses and off for the other ones.
    void setPolled(unsigned cards);
    void setPolling(bool on);

    /// Ends the daemon; throws Failure when its end has a fault.
    void stop();

    /// Processor seconds of the daemon's children and of theirs; known after stop().
    double childSeconds() const { return childSeconds_; }

    /// Seconds from the daemon's start.
    double untilServed() const { return served_; }
    double untilDiscovered() const { return discovered_; }

  private:
    void connectClients(Time begin);
    void awaitDiscovery(Time begin, const Slave& slave);

    LinkWatch linkWatch_;  // first: reads the log when the daemon has ended
    support::DaemonProcess daemon_;
    std::optional<support::TcpClient> io_;
    std::optional<support::TcpClient> cae_;
    double served_ = 0;
    double discovered_ = 0;
    double reapedBefore_ = 0;
    double childSeconds_ = 0;
};

}  // namespace bench
