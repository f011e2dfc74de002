// The daemon's manners, which zoltctl has to know: seconds of refusal, one client
// at a time, leftovers, errors that come unasked.
#include <fcntl.h>
#include <signal.h>

#include "tests/support/tcp/tcp_client.h"
#include "tests/zoltctl/daemon_test.h"
#include "tests/zoltctl/fake_test.h"

namespace {

using ctl_test::kVersionText;
using ctl_test::run;
using ctl_test::ZoltctlProcess;
using support::TcpClient;

class Manners : public DaemonTest {
  protected:
    // A client that holds the port.
    static TcpClient hold(std::uint16_t port) {
        auto client = TcpClient::connect(port);
        EXPECT_TRUE(client.receiveUntil("\n\r").starts_with("ZOLT "));
        return client;
    }
};

TEST_F(Manners, ACommandRightAfterAnotherWaitsForThePort) {
    start();
    EXPECT_EQ(outputOf({"version"}), kVersionText);
    EXPECT_EQ(outputOf({"version"}), kVersionText);
    EXPECT_EQ(daemon_.stop(), "");
    expectOutcome(run({"--timeout", "1", "version"}), 3, "",
                  "zoltctl: no daemon at console 127.0.0.1:5001: Connection refused");
}

TEST_F(Manners, APortThatAnotherClientHolds) {
    start();
    auto console = hold(support::kCaePort);
    auto io = hold(support::kIoPort);
    auto monitor = hold(support::kMonPort);
    const auto held = [](const std::string& port) {
        return "zoltctl: " + port + ": no banner came; another client holds the port";
    };
    expectOutcome(run({"--timeout", "0.5", "version"}), 4, "", held("console 127.0.0.1:5001"));
    expectOutcome(run({"version"}, {.environment = {"ZOLT_TIMEOUT=0.5"}}), 4, "",
                  held("console 127.0.0.1:5001"));
    expectOutcome(run({"--timeout", "0.5", "--no-check", "set", "5", "1", "FB"}), 4, "",
                  held("IO 127.0.0.1:5002"));
    expectOutcome(run({"--timeout", "0.5", "monitor"}), 4, "", held("monitor 127.0.0.1:5003"));
    EXPECT_EQ(console.receive() + io.receive() + monitor.receive(), "");
    // Served as soon as the client has left and the port is open again.
    ZoltctlProcess waiting({"version"});
    console.reset();
    expectOutcome(waiting.waitForEnd(), 0, kVersionText);
}

// What a console command before has not fetched comes before the banner.
TEST_F(Manners, ErrorsThatWaitedAreNoReply) {
    start();
    EXPECT_EQ(outputOf({"raw", "io", "nonsense"}), "");
    EXPECT_EQ(outputOf({"cards"}).substr(0, 33), "0  6 channel RC SERVO CONTROLLER\n");
}

TEST_F(Manners, ErrorsOfAnotherClientInTheMidstOfConsoleCommands) {
    start();
    auto io = hold(support::kIoPort);
    ZoltctlProcess process({"console"}, {.input = "DRVVER\nREBOOT:E\nPOLLSTATE\nREBOOT:E\n"});
    std::string output;
    // One error after the other while the commands run.
    int sent = 0;
    ASSERT_TRUE(support::waitUntil([&] {
        if (sent < 300 && io.peerHasReadAll()) {
            io.send("x\r\n");
            ++sent;
        }
        output += process.readNewOutput();
        return !process.running();
    }));
    const auto outcome = process.waitForEnd();
    output += outcome.output;
    EXPECT_EQ(outcome.end, "status 0");
    EXPECT_EQ(outcome.errors, "");
    std::string replies;
    int errors = 0;
    for (const std::string& line : support::splitLines(output)) {
        if (line == "COE:Illegal command -> x") {
            ++errors;
        } else {
            replies += line + "\n";
        }
    }
    EXPECT_EQ(replies,
              "CIA: DRIVER VERSION 1.20\nCIA: Card is REBOOTED\nRBT:0xE:OK\n"
              "CIA: GLOBAL POLLING IS DISABLED\nPTI:0x3:ON\nPTI:0x8:ON\nPTI:0xF:ON\n"
              "CIA: Card is REBOOTED\nRBT:0xE:OK\n");
    EXPECT_GT(errors, 0);
}

TEST_F(Manners, RefusalsOfDaemonAndCard) {
    start();
    expectOutcome(run({"config", "motor", "E", "silent-range", "2"}), 1, "",
                  "zoltctl: CIE: THIS COMMAND IS VALID ON DC MOTOR CONTROLLER CARD ONLY");
    expectOutcome(
        run({"set", "6", "1", "FB"}), 1, "",
        "zoltctl: card 6 is EMPTY; set needs a digital output card, an RC servo card or a DC "
        "motor card");
}

TEST_F(Manners, ADaemonThatDiesInMidAnswer) {
    start();
    ZoltctlProcess process({"config", "reboot", "E"});
    ASSERT_TRUE(reached("host> 04 | 50 0E 01 AB"));
    daemon_.signal(SIGKILL);
    expectOutcome(process.waitForEnd(), 5, "",
                  "zoltctl: console 127.0.0.1:5001: the connection ended before the answer");
    EXPECT_EQ(daemon_.waitForEnd(), "signal 9");
}

TEST_F(Manners, ADaemonThatIsStopped) {
    start();
    ZoltctlProcess process({"--timeout", "5", "config", "reboot", "E"});
    ASSERT_TRUE(reached("host> 04 | 50 0E 01 AB"));
    daemon_.signal(SIGSTOP);
    expectOutcome(process.waitForEnd(), 6, "",
                  "zoltctl: console 127.0.0.1:5001 does not answer REBOOT:E in time "
                  "(--timeout)");
    daemon_.signal(SIGCONT);
}

TEST_F(Manners, AnotherPortOfTheDaemonIsNoConsole) {
    start();
    expectOutcome(
        run({"--timeout", "5", "--cae-port", "5002", "version"}), 7, "",
        "zoltctl: console 127.0.0.1:5002 does not look like zolt: instead of its banner it "
        "sent \"ZOLT IO interface is ready\\r\\n\\r\"");
}

TEST_F(Manners, AnOutputThatCannotBeWritten) {
    start();
    const zolt_os::Descriptor full(::open("/dev/full", O_WRONLY | O_CLOEXEC));
    expectOutcome(run({"version"}, {.output = full.get()}), 8, "",
                  "zoltctl: cannot write the output: No space left on device");
}

struct LineEnd {
    const char* name;
    const char* option;
    /// What the daemon is configured with.
    const char* separator;
};

void PrintTo(const LineEnd& lineEnd, std::ostream* stream) {
    *stream << lineEnd.name;
}

std::string nameOfLineEnd(const ::testing::TestParamInfo<LineEnd>& lineEnd) {
    return lineEnd.param.name;
}

class MannersOfLineEnds : public DaemonTest, public ::testing::WithParamInterface<LineEnd> {};

// The configuration file says another line end than the daemon has.
TEST_P(MannersOfLineEnds, OptionAboveConfiguration) {
    settings_.cae.inSeparator = GetParam().separator;
    settings_.io.inSeparator = GetParam().separator;
    start();
    support::DaemonSettings other;
    other.cae.inSeparator = other.io.inSeparator = "wrong";
    support::writeConfiguration(other.toXml());
    EXPECT_EQ(outputOf({"--line-end", GetParam().option, "lcd", "E", "text", "0", "0", "cat"}),
              "card E: text at column 0, row 0\n");
    EXPECT_TRUE(reached("card E lcd: text at column 0 row 0 \"cat\"")) << sim_->traceTail(10);
}

INSTANTIATE_TEST_SUITE_P(Each, MannersOfLineEnds,
                         ::testing::Values(LineEnd{"crlf", "crlf", "\\r\\n"},
                                           LineEnd{"lf", "lf", "\\n"}, LineEnd{"cr", "cr", "\\r"},
                                           LineEnd{"automatic", "auto", "\\n"},
                                           LineEnd{"text", "\\r\\n;", "\\r\\n;"}),
                         nameOfLineEnd);

}  // namespace
