#include "apps/zolt-sim/adapter/pty_pair.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <termios.h>

#include <array>
#include <memory>

#include "lib/os/descriptor.h"
#include "tests/unit/zolt-sim/support.h"

namespace zolt_sim {
namespace {

Bytes readUntil(PtyPair& pair, std::size_t count) {
    Bytes bytes;
    test::waitUntil([&] {
        std::array<std::uint8_t, 64> buffer{};
        const std::size_t got = pair.read(buffer);
        bytes.insert(bytes.end(), buffer.begin(),
                     buffer.begin() + static_cast<std::ptrdiff_t>(got));
        return bytes.size() >= count;
    });
    return bytes;
}

TEST(PtyPair, CarriesEveryByteUnchangedBothWays) {
    PtyPair pair;
    test::Host host(pair.hostPath());
    Bytes all;
    for (unsigned value = 0; value < 256; ++value) {
        all.push_back(static_cast<std::uint8_t>(value));
    }
    host.send(all);
    EXPECT_EQ(readUntil(pair, all.size()), all);
    ASSERT_TRUE(pair.write(all));
    EXPECT_EQ(host.receive(all.size()), all);
}

TEST(PtyPair, StaysRawWhileNoHostHasItOpen) {
    PtyPair pair;
    for (int round = 0; round < 2; ++round) {
        const zolt_os::Descriptor host = zolt_os::checked(
            ::open(pair.hostPath().c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC), "open host end");
        termios settings{};
        ASSERT_EQ(::tcgetattr(host.get(), &settings), 0);
        EXPECT_EQ(settings.c_lflag & (ECHO | ICANON | ISIG), 0U);
        EXPECT_EQ(settings.c_oflag & OPOST, 0U);
    }
}

TEST(PtyPair, SeesTheHostComeAndGo) {
    PtyPair pair;
    EXPECT_FALSE(pair.takeHostActions().opened);
    {
        const test::Host host(pair.hostPath());
        const auto actions = pair.takeHostActions();
        EXPECT_TRUE(actions.opened);
        EXPECT_FALSE(actions.closed);
    }
    const auto actions = pair.takeHostActions();
    EXPECT_FALSE(actions.opened);
    EXPECT_TRUE(actions.closed);
}

TEST(PtyPair, ForgetsWhatTheHostHasNotRead) {
    PtyPair pair;
    {
        const zolt_os::Descriptor host = zolt_os::checked(
            ::open(pair.hostPath().c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC), "open host end");
        ASSERT_TRUE(pair.write({0x01, 0x02}));
        pollfd event{host.get(), POLLIN, 0};
        ASSERT_EQ(::poll(&event, 1, 20000), 1);
        pair.discardUnread();
        EXPECT_EQ(::poll(&event, 1, 0), 0);
    }
    test::Host host(pair.hostPath());
    ASSERT_TRUE(pair.write({0x03}));
    EXPECT_EQ(host.receive(1), Bytes{0x03});
}

TEST(PtyPair, ReportsThatTheHostDoesNotRead) {
    PtyPair pair;
    bool full = false;
    for (int i = 0; i < 10000 && !full; ++i) {
        full = !pair.write(Bytes(255, 0x55));
    }
    EXPECT_TRUE(full);
}

TEST(PtyPair, HangsUpWhenItGoes) {
    auto pair = std::make_unique<PtyPair>();
    const test::Host host(pair->hostPath());
    EXPECT_FALSE(host.hungUp());
    pair.reset();
    EXPECT_TRUE(host.hungUp());
}

}  // namespace
}  // namespace zolt_sim
