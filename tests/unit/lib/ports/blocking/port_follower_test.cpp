#include "lib/ports/blocking/port_follower.h"

#include <gtest/gtest.h>
#include <sys/socket.h>

#include <array>
#include <string_view>

#include "lib/os/event.h"
#include "tests/unit/lib/ports/error_of.h"

using namespace zolt_ports;
using zolt_os::Clock;
using zolt_os::Deadline;
using zolt_os::Descriptor;
using zolt_os::Seconds;

namespace {

const std::string kEnded = "IO attic:4002: the connection ended while its lines were awaited";

class PortFollowerTest : public ::testing::Test {
  protected:
    void SetUp() override {
        std::array<int, 2> ends{};
        ASSERT_EQ(::socketpair(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK, 0, ends.data()), 0);
        own_ = Descriptor(ends[0]);
        peer_ = Descriptor(ends[1]);
    }

    /// A follower of a port that has sent `received` after its banner.
    PortFollower follow(const std::string& received) {
        return {OpenPort{Connection(std::move(own_), "IO attic:4002"), "", received}, {"##"}};
    }
    void send(std::string_view bytes) {
        ASSERT_EQ(::send(peer_.get(), bytes.data(), bytes.size(), 0),
                  static_cast<ssize_t>(bytes.size()));
    }
    static Deadline soon() { return Deadline::in(Seconds(20)); }
    static Deadline passed() { return Deadline(Clock::now()); }

    Descriptor own_;
    Descriptor peer_;
};

TEST_F(PortFollowerTest, ReturnsLinesInTheOrderOfTheirArrival) {
    PortFollower follower = follow("a3b0d40##a3b");
    send("0d00##");
    EXPECT_EQ(follower.next(soon()), "a3b0d40");
    EXPECT_EQ(follower.next(soon()), "a3b0d00");
    EXPECT_EQ(follower.next(Deadline::in(Seconds(0.01))), std::nullopt);
}

TEST_F(PortFollowerTest, ReturnsAReceivedLineAlsoAfterTheDeadline) {
    PortFollower follower = follow("a3b0d40##");
    EXPECT_EQ(follower.next(passed()), "a3b0d40");
    EXPECT_EQ(follower.next(passed()), std::nullopt);
}

TEST_F(PortFollowerTest, WaitEndsWithTheInterrupt) {
    PortFollower follower = follow("");
    zolt_os::Event interrupt;
    interrupt.raise();
    EXPECT_EQ(follower.next(Deadline::in(Seconds(60), interrupt.get())), std::nullopt);
}

TEST_F(PortFollowerTest, ReadsInTwoStepsWithoutWaiting) {
    PortFollower follower = follow("");
    follower.receive();
    EXPECT_EQ(follower.nextReceived(), std::nullopt);
    send("one##two##");
    follower.receive();
    EXPECT_EQ(follower.nextReceived(), "one");
    EXPECT_EQ(follower.nextReceived(), "two");
    EXPECT_EQ(follower.nextReceived(), std::nullopt);
}

TEST_F(PortFollowerTest, EndOfTheConnectionIsAnError) {
    PortFollower follower = follow("");
    peer_.reset();
    EXPECT_EQ(errorOf(Reason::kCut, [&] { follower.next(soon()); }), kEnded);
    EXPECT_EQ(errorOf(Reason::kCut, [&] { follower.receive(); }), kEnded);
}

}  // namespace
