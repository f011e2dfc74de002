#include "lib/ports/packet.h"

#include <gtest/gtest.h>

#include "tests/unit/lib/ports/error_of.h"

using namespace zolt_ports;

TEST(Packet, HoldsTheLineAndItsEnd) {
    EXPECT_EQ(packetOf("DRVVER", "\r\n"), "DRVVER\r\n");
    EXPECT_EQ(packetOf(std::string(253, 'x'), "\r\n").size(), 255U);
}

TEST(Packet, TakesNoLongerLineThanTheDaemon) {
    EXPECT_EQ(errorOf(Reason::kBadLine, [] { packetOf(std::string(254, 'x'), "\r\n"); }),
              "the line is too long: with its end 256 bytes, and the daemon takes 255");
}

TEST(Packet, TakesNoZeroByte) {
    EXPECT_EQ(errorOf(Reason::kBadLine, [] { packetOf(std::string("a\0b", 3), "\n"); }),
              "the line holds a 0 byte, which the daemon does not take");
}
