#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "lib/text/hexadecimal.h"
#include "tests/faults/daemon_state.h"
#include "tests/support/process/daemon_process.h"
#include "tests/support/process/daemon_settings.h"
#include "tests/support/process/sim_process.h"
#include "tests/support/tcp/tcp_client.h"

/// The daemon on a simulated bus with a card of every kind, both in a private
/// view of their own. A case does something bad to it and then says what has to
/// hold all the same.
class FaultTest : public ::testing::Test {
  protected:
    /// `program` is the daemon or a build of it for tests.
    explicit FaultTest(const std::string& program = support::DaemonProcess::defaultProgram());
    void SetUp() override;
    /// A daemon that still runs is stopped and has to do so properly; whatever a
    /// sanitizer reported fails the test.
    void TearDown() override;

    /// Plugs the bus in, unless a case has done so.
    void plugBus(const std::string& link = "/dev/ttyUSB0");
    /// Writes the configuration and starts the daemon.
    void startDaemon();
    /// Both, then a full round, and notes the daemon's state for serves().
    void startServing();

    /// A full round: discovery lists every card, an output reaches its card, a
    /// change of an input reaches the IO client, the console answers a command.
    /// Clients that have gone are connected again.
    void expectFullRound();
    /// A full round, and descriptors, threads and memory are as startServing()
    /// or noteState() found them.
    void expectServesAsBefore();
    /// Takes what the daemon holds now as what it may hold from now on.
    void noteState() { before_ = stateOf(daemon_.number()); }

    /// A client that has got its welcome, after whatever the daemon had for it
    /// besides (kept in `before` when given). Tries again while the port is
    /// refused or a connection ends without a welcome.
    static support::TcpClient greeted(std::uint16_t port, std::string* before = nullptr);
    support::TcpClient& console();
    support::TcpClient& io();
    /// One command on the console, and what comes until the answer with this part
    /// in it is complete; errors of IO that wait there come first.
    std::string answered(const std::string& line, const std::string& part);

    /// From now on sockets of this network keep little, so that a client that does
    /// not read is felt after a few reports.
    static void keepSocketBuffersSmall();

    /// Sends an output to card 5; `low` is its second block.
    void sendOutput(unsigned low);
    /// Waits until that is what the card shows.
    bool outputArrives(unsigned low);
    /// Waits for a trace line of the simulated bus from here on, without its time.
    bool traced(const std::string& line);
    /// Waits until IO got this report.
    bool reported(const std::string& report);
    /// Waits until the log has a line with this tag and text.
    bool logged(const std::string& line, long times = 1) const;
    /// How often the log has this line.
    long timesLogged(const std::string& line) const;
    /// Waits until the simulated bus has no fault left to strike with.
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

    /// Changes with every round, so that a round never finds what the last left.
    unsigned value_ = 0;
    /// Trace lines read so far and not asked for yet.
    std::vector<std::string> trace_;
    std::string reports_;
};

/// Two upper-case hexadecimal digits.
inline std::string hexByte(unsigned value) {
    return zolt_text::hexNumber(value & 0xFFU, 2);
}
