#include <sched.h>
#include <signal.h>
#include <unistd.h>

#include <chrono>
#include <cstring>
#include <functional>
#include <map>
#include <sstream>
#include <stdexcept>

#include "tests/faults/fault_test.h"
#include "tests/support/files.h"
#include "tests/support/process/child_process.h"
#include "tests/support/wait.h"

namespace {

using support::Clock;
using support::waitUntil;

constexpr const char* kStopped = "[INF] zolt is stopped by SIGTERM or SIGINT";

/// The daemon that a started process leaves in the background, as soon as there is one.
pid_t daemonOf(pid_t parent) {
    const std::string program = support::DaemonProcess::defaultProgram();
    const std::string number = std::to_string(parent);
    const std::string children = "/proc/" + number + "/task/" + number + "/children";
    for (const auto start = Clock::now(); Clock::now() < start + support::kPatience;) {
        std::istringstream list(support::readFile(children));
        if (pid_t child = 0; list >> child) return child;
        // If the parent has already ended, the daemon is a child of this process.
        for (const pid_t child : support::childrenRunning(program)) {
            if (child != parent) return child;
        }
    }
    throw std::runtime_error("no daemon of " + number);
}

/// Lets both programs run at the same time if the machine has several processors.
void useAllProcessors() {
    cpu_set_t all;
    std::memset(&all, 0xFF, sizeof all);
    ::sched_setaffinity(0, sizeof all, &all);
}

class SystemStop : public FaultTest {
  protected:
    void expectStops(const std::string& where) {
        const long before = timesLogged(kStopped);
        daemon_.signal(SIGTERM);
        EXPECT_EQ(daemon_.waitForEnd(), "status 0") << where;
        EXPECT_EQ(timesLogged(kStopped), before + 1) << where;
        EXPECT_EQ(daemon_.standardError(), "") << where;
        io_.reset();
        console_.reset();
    }

    void startNew() {
        std::filesystem::remove(settings_.logFile);
        startDaemon();
    }

    /// How a daemon ends that gets SIGTERM during its start, when `awaitMoment` returns.
    static std::string endOfAStart(const std::function<void()>& awaitMoment) {
        const std::string program = support::DaemonProcess::defaultProgram();
        const pid_t parent = support::spawn({program}, {});
        const pid_t daemon = daemonOf(parent);
        awaitMoment();
        ::kill(daemon, SIGTERM);
        support::reap(parent);
        const auto end = support::reap(daemon);
        // A shell that the daemon has just forked still looks like a daemon, and is now a child of
        // this process.
        EXPECT_TRUE(waitUntil([&] { return support::childrenRunning(program).empty(); }));
        return end ? support::describeWaitStatus(*end) : "still running";
    }

    std::size_t logLines() const {
        return support::splitLines(support::readFile(settings_.logFile)).size();
    }

    static void sendAndAwaitReading(support::TcpClient& client, const std::string& line) {
        client.send(line);
        ASSERT_TRUE(waitUntil([&] { return client.peerHasReadAll(); }));
    }
};

TEST_F(SystemStop, AtEveryStageOfTheStart) {
    plugBus();
    settings_.discover = true;
    support::writeConfiguration(settings_.toXml());
    useAllProcessors();
    std::map<std::string, int> ends;
    // The first moments are microseconds apart, since the first stages of a start are that
    // short. The others follow the lines of the log: a start writes twelve.
    constexpr int kDelays = 30;
    constexpr std::size_t kLines = 12;
    for (int step = 0; step < kDelays; ++step) {
        const std::chrono::microseconds delay(20 * step);
        ++ends[endOfAStart([delay] {
            for (const auto start = Clock::now(); Clock::now() < start + delay;) {
            }
        })];
    }
    // Before the daemon has set its handlers, the signal ends the process.
    EXPECT_EQ(ends["signal 15"] + ends["status 0"], kDelays) << ::testing::PrintToString(ends);
    RecordProperty("before_the_handlers", ends["signal 15"]);
    for (std::size_t line = 1; line <= kLines; ++line) {
        const std::size_t awaited = logLines() + line;
        const std::string end = endOfAStart([&] {
            ASSERT_TRUE(waitUntil([&] { return logLines() >= awaited; })) << "line " << line;
        });
        EXPECT_EQ(end, "status 0") << "after line " << line;
        ++ends[end];
    }
    EXPECT_EQ(timesLogged(kStopped), ends["status 0"]);
    settings_.discover = false;
    startServing();
    expectServesAsBefore();
}

TEST_F(SystemStop, DuringThePausesOfTheInterfacesAndTheLink) {
    startNew();
    ASSERT_TRUE(logged("[INF] MON interface is waiting for incoming connection"));
    expectStops("ahead of accept");

    startNew();
    ASSERT_TRUE(logged("[ERR] ttyUSB devices couldn't be found"));
    expectStops("without an adapter");

    plugBus();
    settings_.discover = true;
    startNew();
    ASSERT_TRUE(logged("[INF] hardware found on /dev/ttyUSB0 version: 1.04"));
    expectStops("ahead of the discovery");
    settings_.discover = false;

    startNew();
    greeted(support::kMonPort).reset();
    ASSERT_TRUE(logged("[INF] connection is closed by client on MON interface"));
    expectStops("ahead of reopening");

    startNew();
    expectFullRound();
    bus_->control("fault silence at 5 for output always");
    sendOutput(0xEE);
    ASSERT_TRUE(outputArrives(0xEE));
    expectStops("while an answer is awaited");
}

TEST_F(SystemStop, DuringThePausesOfTheConsole) {
    plugBus();
    startNew();
    expectFullRound();
    sendAndAwaitReading(console(), "GETANMASK:F\r\n");
    expectStops("while a configuration command waits");

    startNew();
    expectFullRound();
    sendAndAwaitReading(console(), "FORCEDISCOVER\r\n");
    expectStops("while cards are searched");

    startNew();
    expectFullRound();
    console().send("EXIT\r\n");
    ASSERT_NE(console().receiveUntil("\r\n\r"), "");
    expectStops("while the console says farewell");
}

TEST_F(SystemStop, WhileAClientDoesNotRead) {
    keepSocketBuffersSmall();
    startServing();
    for (int i = 0; i < 20; ++i) console().send("HELP\r\n");
    ASSERT_TRUE(waitUntil([this] { return console().peerHasReadAll(); }));
    expectStops("while a client does not read");
}

TEST_F(SystemStop, HardAndWithClientsAndServesAfterTheNextStart) {
    plugBus();
    for (const int signal : {SIGHUP, SIGKILL}) {
        startNew();
        expectFullRound();
        daemon_.signal(signal);
        EXPECT_EQ(daemon_.waitForEnd(), "signal " + std::to_string(signal));
        EXPECT_EQ(timesLogged(kStopped), 0);
        EXPECT_NE(io().receiveUntil("anything"), "anything");
        EXPECT_TRUE(io().closedByPeer());
        io_.reset();
        console_.reset();
    }
    startNew();
    expectFullRound();
    noteState();
    expectServesAsBefore();
}

}  // namespace
