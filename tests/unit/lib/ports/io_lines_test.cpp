#include "lib/ports/io_lines.h"

#include <gtest/gtest.h>

using namespace zolt_ports;

TEST(IoLines, NameAddressAndValuesInUpperCaseDigits) {
    EXPECT_EQ(blockLine('5', 1, 0xFB), "a5b1dFB");
    EXPECT_EQ(blockLine('E', 15, 0x0A), "aEbFd0A");
    EXPECT_EQ(lcdLine('E', "LO"), "aElLO");
    EXPECT_EQ(lcdTextLine('E', 3, 255, "Tail of the cat"), "aElPAp03FFtTail of the cat");
    EXPECT_EQ(streamLine('9', "434F"), "a9sHS434F");
}
