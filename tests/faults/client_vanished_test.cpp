#include <chrono>

#include "tests/faults/fault_test.h"
#include "tests/support/wait.h"

namespace {

using support::Clock;

class ClientVanished : public FaultTest {
  protected:
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
    ASSERT_TRUE(support::waitUntil([this] { return io().peerHasReadAll(); }));
    io().vanish();
    constexpr std::chrono::seconds kLongPatience{150};
    const auto waitForEnd = [&](const std::string& name) {
        ASSERT_TRUE(support::waitUntil(
            [&] {
                return timesLogged("[INF] connection is closed by client on " + name +
                                   " interface") > 0;
            },
            kLongPatience));
        recordSeconds(name + "_seconds", start);
    };
    waitForEnd("CAE");
    waitForEnd("IO");
    EXPECT_EQ(monitor.receive(), "");
    EXPECT_FALSE(monitor.closedByPeer()) << "a living client is left alone";
    io_.reset();
    console_.reset();
    expectFullRound();
    EXPECT_NE(monitor.receive(), "");
    monitor.reset();
    expectServesAsBefore();
}

}  // namespace
