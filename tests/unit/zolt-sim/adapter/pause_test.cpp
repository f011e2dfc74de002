#include "apps/zolt-sim/adapter/pause.h"

#include <gtest/gtest.h>

#include "lib/os/event.h"

namespace zolt_sim {
namespace {

using std::chrono::milliseconds;
using std::chrono::nanoseconds;

TEST(Pause, AByteTakesTenBits) {
    EXPECT_EQ(wireTime(0, 460800), nanoseconds(0));
    EXPECT_EQ(wireTime(9, 460800), nanoseconds(195312));
    EXPECT_EQ(wireTime(1, 9600), nanoseconds(1041666));
    EXPECT_EQ(wireTime(4096, 1), std::chrono::seconds(40960));
    EXPECT_EQ(wireTime(9, 0), nanoseconds(0));
}

TEST(Pause, IsNeverOverBeforeTheDeadline) {
    zolt_os::Event stop;
    for (const int microseconds : {0, 50, 200, 2500, 5000}) {
        const auto deadline = Clock::now() + std::chrono::microseconds(microseconds);
        EXPECT_TRUE(holdUntil(deadline, stop.get()));
        EXPECT_GE(Clock::now(), deadline);
    }
}

TEST(Pause, IsOverAtOnceForADeadlineThatHasPassed) {
    zolt_os::Event stop;
    EXPECT_TRUE(holdUntil(Clock::now() - std::chrono::hours(1), stop.get()));
}

TEST(Pause, EndsWithTheStopEvent) {
    zolt_os::Event stop;
    stop.raise();
    EXPECT_FALSE(holdUntil(Clock::now() + std::chrono::hours(1), stop.get()));
}

}  // namespace
}  // namespace zolt_sim
