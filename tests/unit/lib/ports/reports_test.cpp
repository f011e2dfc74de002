#include "lib/ports/reports.h"

#include <gtest/gtest.h>

using namespace zolt_ports;

TEST(Report, HasAddressBlockAndValue) {
    const auto report = parseReport("aFb3d20");
    ASSERT_TRUE(report);
    EXPECT_EQ(report->address, 'F');
    EXPECT_EQ(report->block, 3U);
    EXPECT_EQ(report->value, 0x20);
    EXPECT_EQ(parseReport("afb3d20")->address, 'F');
}

TEST(Report, MayBeFollowedByAnUnknownSeparator) {
    EXPECT_TRUE(parseReport("a3b0d40;"));
    EXPECT_FALSE(parseReport("a3b0d401"));
}

TEST(Report, HasNoOtherForm) {
    for (const char* line : {"", "a3b0d4", "x3b0d40", "a3c0d40", "a3b0e40", "aGb0d40", "a3bGd40",
                             "a3b0dG0", "a3b0d4G", "ZOLT: Bye Bye..."}) {
        EXPECT_FALSE(parseReport(line)) << line;
    }
}
