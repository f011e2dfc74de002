#include "core/speed.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>

namespace {

TEST(Speed, PercentsHaveTheirDelays) {
    EXPECT_EQ(threadDelayOfPercent(1), 5000);
    EXPECT_EQ(threadDelayOfPercent(50), 2525);
    EXPECT_EQ(threadDelayOfPercent(99), 51);
    EXPECT_EQ(threadDelayOfPercent(100), 1);
}

TEST(Speed, EveryPercentIsCutTowardsZero) {
    for (long percent = 0; percent <= 100; ++percent) {
        EXPECT_EQ(threadDelayOfPercent(percent), (500000 - percent * 4999) / 99) << percent;
    }
}

TEST(Speed, ThePercentIsNotBounded) {
    EXPECT_EQ(threadDelayOfPercent(0), 5050);
    EXPECT_EQ(threadDelayOfPercent(-1), 5101);
    EXPECT_EQ(threadDelayOfPercent(101), -49);
    EXPECT_EQ(threadDelayOfPercent(200), -5048);
}

TEST(Speed, HugePercentsSaturate) {
    EXPECT_EQ(threadDelayOfPercent(std::numeric_limits<long>::max()), INT32_MIN);
    EXPECT_EQ(threadDelayOfPercent(std::numeric_limits<long>::min()), INT32_MAX);
    EXPECT_EQ(threadDelayOfPercent(100'000'000'000), INT32_MIN);
    EXPECT_EQ(threadDelayOfPercent(-100'000'000'000), INT32_MAX);
    EXPECT_GT(threadDelayOfPercent(40'000'000), INT32_MIN);
    EXPECT_LT(threadDelayOfPercent(-40'000'000), INT32_MAX);
}

TEST(Speed, TheDelayBeforeAnySpeedIsFiveMilliseconds) {
    EXPECT_EQ(kDefaultThreadDelay, 5000);
}

}  // namespace
