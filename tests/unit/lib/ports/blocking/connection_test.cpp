#include "lib/ports/blocking/connection.h"

#include <gtest/gtest.h>
#include <sys/socket.h>

#include <array>
#include <string>

using namespace zolt_ports;
using zolt_os::Clock;
using zolt_os::Deadline;
using zolt_os::Descriptor;
using zolt_os::Seconds;

namespace {

class Connections : public ::testing::Test {
  protected:
    void SetUp() override {
        std::array<int, 2> ends{};
        ASSERT_EQ(::socketpair(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK, 0, ends.data()), 0);
        own_ = Descriptor(ends[0]);
        peer_ = Descriptor(ends[1]);
        ASSERT_EQ(::send(peer_.get(), "abc", 3, 0), 3);
    }

    Descriptor own_;
    Descriptor peer_;
};

TEST_F(Connections, ReadsUntilTheDeadline) {
    Connection connection(std::move(own_), "peer");
    std::string bytes;
    EXPECT_EQ(connection.receive(bytes, Deadline::in(Seconds(20))), Connection::Wait::kBytes);
    EXPECT_EQ(bytes, "abc");
    EXPECT_EQ(connection.receive(bytes, Deadline::in(Seconds(0.01))), Connection::Wait::kTimeout);
}

// Otherwise a peer that sends without a pause would never be given up.
TEST_F(Connections, TheDeadlineCountsAlsoWhenBytesAreThere) {
    Connection connection(std::move(own_), "peer");
    std::string bytes;
    EXPECT_EQ(connection.receive(bytes, Deadline(Clock::now())), Connection::Wait::kTimeout);
    EXPECT_EQ(bytes, "");
    EXPECT_EQ(connection.receiveNow(bytes), Connection::Wait::kBytes);
    EXPECT_EQ(bytes, "abc");
    EXPECT_EQ(connection.receiveNow(bytes), Connection::Wait::kTimeout);
}

TEST_F(Connections, AnOrderlyEndIsNoReset) {
    Connection connection(std::move(own_), "peer");
    peer_ = Descriptor();
    std::string bytes;
    EXPECT_EQ(connection.receiveNow(bytes), Connection::Wait::kBytes);
    EXPECT_EQ(connection.receiveNow(bytes), Connection::Wait::kEnd);
    EXPECT_FALSE(connection.wasReset());
}

TEST_F(Connections, AnEndWithBytesUnreadIsAReset) {
    Connection connection(std::move(own_), "peer");
    connection.send("x", Deadline::in(Seconds(20)));
    peer_ = Descriptor();
    std::string bytes;
    while (connection.receiveNow(bytes) == Connection::Wait::kBytes) {
        bytes.clear();
    }
    EXPECT_TRUE(connection.wasReset());
}

}  // namespace
