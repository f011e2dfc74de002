#include <chrono>

#include "tests/faults/fault_test.h"
#include "tests/support/wait.h"

namespace {

using support::Clock;
using support::waitUntil;

/// Longer than the daemon may take to let a client go.
constexpr std::chrono::seconds kVanishedPatience{150};

class ClientVanished : public FaultTest {
  protected:
    /// How often clients have gone from an interface so far.
    long ends(const std::string& name) const {
        return timesLogged("[INF] connection is closed by client on " + name + " interface");
    }

    void recordSeconds(const std::string& name, Clock::time_point start) {
        const auto seconds =
            std::chrono::duration_cast<std::chrono::seconds>(Clock::now() - start).count();
        RecordProperty(name, static_cast<int>(seconds));
        EXPECT_LT(seconds, 120) << name;
    }
};

/// Takes two minutes, as long as the daemon may.
TEST_F(ClientVanished, FreesTheInterfaceWithinTwoMinutes) {
    startServing();
    auto monitor = greeted(support::kMonPort);
    const auto start = Clock::now();
    // A reply is on its way to one, the other is idle; the third lives and is idle.
    console().vanish();
    io().send("Z\r\n");
    ASSERT_EQ(monitor.receiveUntil("Z\r\n\r"), "Z\r\n\r");
    ASSERT_TRUE(waitUntil([this] { return io().peerHasReadAll(); }));
    io().vanish();
    for (const std::string name : {"CAE", "IO"}) {
        ASSERT_TRUE(waitUntil([&] { return ends(name) > 0; }, kVanishedPatience));
        recordSeconds(name + "_seconds", start);
    }
    EXPECT_EQ(monitor.receive(), "");
    EXPECT_FALSE(monitor.closedByPeer()) << "a living client is left alone";
    io_.reset();
    console_.reset();
    expectFullRound();
    EXPECT_NE(monitor.receive(), "");
    monitor.reset();
    expectServesAsBefore();
}

/// Three that live: one takes nothing, one takes little at a time, and one is idle.
TEST_F(ClientVanished, ALivingOneIsLetGoOnlyWhenItTakesNothing) {
    keepSocketBuffersSmall();
    startServing();
    bus_->control("set 3 0 00");
    ASSERT_TRUE(reported("a3b0d00"));
    auto slow = greeted(support::kMonPort);
    io_.reset();
    const auto stalled = greeted(support::kIoPort);
    const long endsBefore = ends("IO");
    // More than the sockets keep, and more than the slow one takes meanwhile.
    constexpr unsigned kReports = 900;
    std::string expected;
    EXPECT_NE(answered("DISABLEPOLL", "DISABLED"), "");
    for (unsigned i = 0; i < kReports; ++i) {
        const std::string value = hexByte(1 + i % 2);
        bus_->control("fault answer 21 03 " + value + " 00 at 3 for poll once");
        expected += "a3b0d" + value + "\r\n\r";
    }
    EXPECT_NE(answered("ENABLEPOLL", "ENABLED"), "");
    ASSERT_TRUE(faultsHaveStruck());
    // By now the stalled one takes nothing.
    const auto start = Clock::now();
    const std::string last = "a3b0d00\r\n\r";
    expected += last;

    constexpr std::chrono::seconds kPace{1};
    constexpr std::size_t kTaken = 40;
    std::string got;
    auto next = Clock::now();
    ASSERT_TRUE(waitUntil(
        [&] {
            if (Clock::now() >= next) {
                got += slow.receive(kTaken);
                next += kPace;
            }
            return ends("IO") > endsBefore;
        },
        kVanishedPatience));
    recordSeconds("stalled_seconds", start);
    EXPECT_LT(got.size(), expected.size()) << "there was not always something to take";
    EXPECT_EQ(ends("MON"), 0);
    EXPECT_EQ(ends("CAE"), 0);
    EXPECT_NE(answered("DRVVER", "1.20"), "");
    EXPECT_TRUE(waitUntil([&] {
        got += slow.receive();
        return got.ends_with(last);
    })) << "it has lost the last";
    // A busy machine may cost the link, and that the answers on their way.
    if (timesLogged("[INF] comm timeout /dev/ttyUSB0") == 0) {
        EXPECT_EQ(got, expected);
    }
    EXPECT_FALSE(slow.closedByPeer());

    // What waited for the one that was let go is for the next.
    std::string left;
    io_ = greeted(support::kIoPort, &left);
    EXPECT_NE(left, "");
    EXPECT_TRUE(got.ends_with(left)) << left;
    slow.reset();
    expectServesAsBefore();
}

}  // namespace
