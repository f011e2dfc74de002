#include "apps/zoltctl/ports/packet.h"

#include <gtest/gtest.h>

#include "tests/unit/zoltctl/failure_of.h"

using namespace ctl;

TEST(CtlPacket, HoldsTheLineAndItsEnd) {
    EXPECT_EQ(packetOf("DRVVER", "\r\n"), "DRVVER\r\n");
    EXPECT_EQ(packetOf(std::string(253, 'x'), "\r\n").size(), 255U);
}

TEST(CtlPacket, TakesNoLongerLineThanTheDaemon) {
    EXPECT_EQ(failureOf([] { packetOf(std::string(254, 'x'), "\r\n"); }),
              "2 the line is too long: with its end 256 bytes, and the daemon takes 255");
}

TEST(CtlPacket, TakesNoZeroByte) {
    EXPECT_EQ(failureOf([] { packetOf(std::string("a\0b", 3), "\n"); }),
              "2 the line holds a 0 byte, which the daemon does not take");
}
