#include <algorithm>
#include <chrono>
#include <thread>

#include "tests/faults/fault_test.h"
#include "tests/support/wait.h"

namespace {

using std::chrono::milliseconds;
using support::Clock;
using support::TcpClient;

/// No answer takes this long, whatever the other clients do.
constexpr std::chrono::seconds kLongestAnswer{30};

class ClientPace : public FaultTest {
  protected:
    /// The longest time that the console takes for an answer, or that a change of an input
    /// takes to the monitor, of some tries.
    struct Latency {
        milliseconds console{0};
        milliseconds monitor{0};
    };

    Latency latency(TcpClient& monitor, unsigned firstValue) {
        Latency longest;
        for (unsigned i = 0; i < 50; ++i) {
            auto start = Clock::now();
            EXPECT_NE(answered("DRVVER", "1.20"), "");
            longest.console = std::max(longest.console, since(start));
            const std::string value = hexByte(firstValue + i);
            start = Clock::now();
            bus_->control("set 3 0 " + value);
            const std::string report = "a3b0d" + value + "\r\n\r";
            EXPECT_TRUE(monitor.receiveUntil(report, kLongestAnswer).ends_with(report));
            longest.monitor = std::max(longest.monitor, since(start));
        }
        return longest;
    }

    static milliseconds since(Clock::time_point start) {
        return std::chrono::duration_cast<milliseconds>(Clock::now() - start);
    }

    void record(const std::string& name, milliseconds value) {
        RecordProperty(name + "_milliseconds", static_cast<int>(value.count()));
    }
};

TEST_F(ClientPace, OneThatNeverReadsHoldsUpNoOther) {
    keepSocketBuffersSmall();
    startServing();
    auto monitor = greeted(support::kMonPort);
    const Latency before = latency(monitor, 200);

    // After the banner this client reads nothing.
    io_.reset();
    auto deaf = greeted(support::kIoPort);
    monitor.receive();
    constexpr unsigned kChanges = 300;
    for (unsigned i = 0; i < kChanges; ++i) {
        const std::string value = hexByte(100 + i % 100);
        bus_->control("set 3 0 " + value);
        const std::string report = "a3b0d" + value + "\r\n\r";
        ASSERT_TRUE(monitor.receiveUntil(report).ends_with(report)) << i;
    }
    const Latency during = latency(monitor, 1);
    EXPECT_LT(during.console, kLongestAnswer);
    EXPECT_LT(during.monitor, kLongestAnswer);
    record("console_before", before.console);
    record("console_during", during.console);
    record("monitor_before", before.monitor);
    record("monitor_during", during.monitor);

    // No report is lost: when the client reads again, it gets all of them in order.
    std::string expected;
    for (unsigned i = 0; i < kChanges; ++i) {
        expected += "a3b0d" + hexByte(100 + i % 100) + "\r\n\r";
    }
    for (unsigned i = 0; i < 50; ++i) expected += "a3b0d" + hexByte(1 + i) + "\r\n\r";
    std::string got;
    EXPECT_TRUE(support::waitUntil([&] {
        got += deaf.receive();
        return got.size() >= expected.size();
    }));
    EXPECT_EQ(got, expected);

    deaf.reset();
    monitor.reset();
    expectServesAsBefore();
}

TEST_F(ClientPace, OneThatNeverReadsAndLeavesGivesTheInterfaceBack) {
    keepSocketBuffersSmall();
    startServing();
    io_.reset();
    auto deaf = greeted(support::kIoPort);
    for (unsigned i = 0; i < 200; ++i) {
        const std::string value = hexByte(1 + i % 2);
        bus_->control("fault answer 21 03 " + value + " 00 at 3 for poll once");
    }
    ASSERT_TRUE(faultsHaveStruck());
    deaf.reset();
    expectServesAsBefore();
}

TEST_F(ClientPace, SingleBytesAndHalvesOfLinesAreLinesOfTheirOwn) {
    startServing();
    auto monitor = greeted(support::kMonPort);
    constexpr std::chrono::seconds kPace{1};
    const std::string slow = "a5b1d";
    std::string errors;
    for (const char byte : slow) {
        io().send(std::string(1, byte));
        monitor.send(std::string(1, byte));
        const std::string heard = std::string(1, byte) + "\r";
        EXPECT_EQ(monitor.receiveUntil(heard), heard);
        errors += console().receiveUntil(">\r\n\r");
        console().send(std::string(1, byte));
        EXPECT_EQ(console().receiveUntil(">\r\n\r"), "CIE: UNKNOWN COMMAND \r\n>\r\n\r");
        std::this_thread::sleep_for(kPace);
    }
    EXPECT_EQ(errors,
              "COE:Parser exception -> a\r\n\r>\r\n\rCOE:Illegal command -> 5\r\n\r>\r\n\r"
              "COE:Illegal command -> b\r\n\r>\r\n\rCOE:Illegal command -> 1\r\n\r>\r\n\r"
              "COE:Illegal command -> d\r\n\r>\r\n\r");
    // These are halves of lines whose other halves never come.
    for (auto* client : {&console(), &io()}) {
        client->send(client == &io() ? "a5b1d" : "DRV");
        ASSERT_TRUE(support::waitUntil([&] { return client->peerHasReadAll(); }));
    }
    expectFullRound();
    monitor.reset();
    expectServesAsBefore();
}

TEST_F(ClientPace, TwoAtOnceOnEachPort) {
    startServing();
    auto monitor = greeted(support::kMonPort);
    for (int round = 0; round < 2; ++round) {
        auto second = TcpClient::connect(support::kIoPort);
        auto secondConsole = TcpClient::connect(support::kCaePort);
        auto secondMonitor = TcpClient::connect(support::kMonPort);
        second.send("a5b1dEE\r\n");
        secondConsole.send("DISABLEPOLL\r\n");
        secondMonitor.send("nobody reads this\r\n");
        expectFullRound();
        for (auto* client : {&second, &secondConsole, &secondMonitor}) {
            EXPECT_EQ(client->receive(), "");
        }
        io_.reset();
        console_.reset();
        monitor.reset();
        monitor = greeted(support::kMonPort);
        for (auto* client : {&second, &secondConsole, &secondMonitor}) {
            EXPECT_EQ(client->receiveUntil("anything"), "");
            EXPECT_TRUE(client->closedByPeer()) << "it waited for the first one in vain";
        }
        expectFullRound();
    }
    for (const auto& line : bus_->readNewTrace()) EXPECT_EQ(line.find("FF EE"), std::string::npos);
    monitor.reset();
    expectServesAsBefore();
}

}  // namespace
