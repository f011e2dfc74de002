#include <signal.h>
#include <unistd.h>

#include <chrono>
#include <functional>
#include <map>
#include <thread>

#include "tests/faults/fault_test.h"
#include "tests/support/child_process.h"
#include "tests/support/files.h"
#include "tests/support/wait.h"

namespace {

using support::waitUntil;

constexpr const char* kStopped = "[INF] zolt is stopped by SIGTERM or SIGINT";

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

    static void sendAndAwaitReading(support::TcpClient& client, const std::string& line) {
        client.send(line);
        ASSERT_TRUE(waitUntil([&] { return client.peerHasReadAll(); }));
    }
};

TEST_F(SystemStop, AtEveryStageOfTheStart) {
    plugBus();
    settings_.discover = true;
    support::writeConfiguration(settings_.toXml());
    const std::string program = support::DaemonProcess::defaultProgram();
    std::map<std::string, int> ends;
    constexpr int kSteps = 60;
    for (int step = 0; step < kSteps; ++step) {
        const pid_t parent = support::spawn({program}, {});
        // Without a pause in between: the first stages last for microseconds.
        while (!support::reap(parent, std::chrono::milliseconds(0))) {
        }
        const auto daemons = support::childrenRunning(program);
        ASSERT_EQ(daemons.size(), 1U);
        std::this_thread::sleep_for(std::chrono::milliseconds(step));
        ::kill(daemons[0], SIGTERM);
        const auto end = support::reap(daemons[0]);
        ASSERT_TRUE(end.has_value()) << "still running, signal after " << step << " ms";
        ++ends[support::describeWaitStatus(*end)];
    }
    // Before its handlers are there the signal simply ends it.
    EXPECT_EQ(ends["signal 15"] + ends["status 0"], kSteps);
    EXPECT_EQ(timesLogged(kStopped), ends["status 0"]);
    RecordProperty("before_the_handlers", ends["signal 15"]);
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
    support::writeFile("/proc/sys/net/ipv4/tcp_wmem", "4096 4096 4096\n");
    support::writeFile("/proc/sys/net/ipv4/tcp_rmem", "4096 4096 4096\n");
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
