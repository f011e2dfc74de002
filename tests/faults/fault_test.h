#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "tests/faults/daemon_state.h"
#include "tests/support/process/daemon_process.h"
#include "tests/support/process/daemon_settings.h"
#include "tests/support/process/sim_process.h"
#include "tests/support/tcp/tcp_client.h"
#include "tests/support/text/hex_number.h"

/// The daemon on a simulated bus with a card of every kind, both in a private view. A case
/// does something bad to the daemon and then checks what still has to hold.
class FaultTest : public ::testing::Test {
  protected:
    /// `program` is the daemon or a build of the daemon for tests.
    explicit FaultTest(const std::string& program = support::DaemonProcess::defaultProgram());
    void SetUp() override;
    /// Stops a daemon that still runs, which has to end with status 0. Fails the test if a
    /// sanitizer has reported anything.
    void TearDown() override;

    /// Plugs the bus in, unless the case has done so.
    void plugBus(const std::string& link = "/dev/ttyUSB0");
    /// Writes the configuration and starts the daemon.
    void startDaemon();
    /// Starts both, makes a full round and records the daemon's state for serves().
    void startServing();

    /// Makes a full round: discovery lists every card, an output reaches its card, a change
    /// of an input reaches the IO client, and the console answers a command. Clients that
    /// have gone are connected again.
    void expectFullRound();
    /// Makes a full round and compares descriptors, threads and memory with what
    /// startServing() or noteState() has recorded.
    void expectServesAsBefore();
    /// Records what the daemon holds now as the limit for serves().
    void noteState() { before_ = stateOf(daemon_.number()); }

    /// A client that has got its banner. What the daemon sent before the banner goes to
    /// `before` if it is given. Tries again while the port is refused or a connection ends
    /// without a banner.
    static support::TcpClient greeted(std::uint16_t port, std::string* before = nullptr);
    support::TcpClient& console();
    support::TcpClient& io();
    /// Sends one command to the console. Returns what comes until the answer that contains
    /// this part is complete; errors of IO that wait there come before the answer.
    std::string answered(const std::string& line, const std::string& part);

    /// Makes the buffers of all new sockets small, so that the daemon notices a client that
    /// does not read after a few reports.
    static void keepSocketBuffersSmall();

    /// Sends an output to card 5; `low` is the value of its second block.
    void sendOutput(unsigned low);
    /// Waits until card 5 shows this output.
    bool outputArrives(unsigned low);
    /// Waits for a new line in the trace of the simulated bus; `line` has no time.
    bool traced(const std::string& line);
    /// Waits until IO has got this report.
    bool reported(const std::string& report);
    /// Waits until the log has a line with this tag and text.
    bool logged(const std::string& line, long times = 1) const;
    /// The number of such lines in the log.
    long timesLogged(const std::string& line) const;
    /// Waits until no fault of the simulated bus is left.
    bool faultsHaveStruck();

    support::DaemonSettings settings_;
    support::DaemonProcess daemon_;
    std::unique_ptr<support::SimProcess> bus_;
    std::optional<support::TcpClient> console_;
    std::optional<support::TcpClient> io_;
    DaemonState before_;

  private:
    void expectDiscovery();
    void expectOutput();
    void expectInputChange();
    void expectConsole();

    /// Changes with every round, so that no round finds the values of the previous one.
    unsigned value_ = 0;
    /// The trace lines that were read and not waited for yet.
    std::vector<std::string> trace_;
    std::string reports_;
};

/// Two upper-case hexadecimal digits.
inline std::string hexByte(unsigned value) {
    return support::hexNumber(value & 0xFFU, 2);
}
