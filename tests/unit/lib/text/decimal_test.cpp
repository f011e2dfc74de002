#include "lib/text/decimal.h"

#include <gtest/gtest.h>

using namespace zolt_text;

namespace {

TEST(Decimal, NumbersUpToTheLimitAreRead) {
    EXPECT_EQ(parseDecimal("0", 10), 0U);
    EXPECT_EQ(parseDecimal("010", 10), 10U);
    EXPECT_EQ(parseDecimal("4294967295", 4294967295U), 4294967295U);
}

TEST(Decimal, OtherTextsAreNotRead) {
    for (const char* text : {"", "11", "+1", "-1", "1x", " 1", "99999999999999999999999"}) {
        EXPECT_FALSE(parseDecimal(text, 10)) << text;
    }
}

TEST(Decimal, PositiveNumbersMayHaveAFraction) {
    EXPECT_EQ(parsePositive("0.5", 10), 0.5);
    EXPECT_EQ(parsePositive("10", 10), 10);
    for (const char* text : {"", "0", "-1", "11", "nan", "inf", "1s", "1,5"}) {
        EXPECT_FALSE(parsePositive(text, 10)) << text;
    }
}

}  // namespace
