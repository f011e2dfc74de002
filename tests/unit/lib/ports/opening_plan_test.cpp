#include "lib/ports/opening_plan.h"

#include <gtest/gtest.h>

using namespace zolt_ports;
using std::chrono::seconds;
using Clock = OpeningPlan::Clock;
using Seconds = OpeningPlan::Seconds;

namespace {

const Clock::time_point kStart{seconds{1000}};

Clock::time_point at(int second) {
    return kStart + seconds{second};
}

}  // namespace

TEST(OpeningPlan, RefusingPortIsTriedForSixSeconds) {
    OpeningPlan plan(Seconds(20));
    EXPECT_EQ(plan.refused(at(0)), OpeningPlan::Next::kRetry);
    EXPECT_EQ(plan.refused(at(5)), OpeningPlan::Next::kRetry);
    EXPECT_EQ(plan.refused(at(6)), OpeningPlan::Next::kNoDaemon);
}

TEST(OpeningPlan, RefusingPortIsNotTriedLongerThanTheTimeout) {
    OpeningPlan plan(Seconds(2));
    EXPECT_EQ(plan.refused(at(0)), OpeningPlan::Next::kRetry);
    EXPECT_EQ(plan.refused(at(2)), OpeningPlan::Next::kNoDaemon);
}

TEST(OpeningPlan, BannerIsAwaitedFromTheFirstConnectionOn) {
    OpeningPlan plan(Seconds(20));
    EXPECT_EQ(plan.end(at(0)), at(20));
    plan.refused(at(0));
    plan.connected(at(4));
    EXPECT_EQ(plan.end(at(5)), at(24));
    EXPECT_EQ(plan.turnedAway(at(23)), OpeningPlan::Next::kRetry);
    plan.connected(at(23));
    EXPECT_EQ(plan.end(at(23)), at(24));
    EXPECT_EQ(plan.turnedAway(at(24)), OpeningPlan::Next::kHeld);
}

TEST(OpeningPlan, RefusalAfterBeingTurnedAwayCountsAnew) {
    OpeningPlan plan(Seconds(20));
    plan.refused(at(0));
    plan.connected(at(5));
    EXPECT_EQ(plan.refused(at(10)), OpeningPlan::Next::kRetry);
    EXPECT_EQ(plan.refused(at(15)), OpeningPlan::Next::kRetry);
    EXPECT_EQ(plan.refused(at(16)), OpeningPlan::Next::kNoDaemon);
    EXPECT_EQ(plan.refused(at(25)), OpeningPlan::Next::kHeld);
}
