#include "tests/reliability/accounts/trend.h"

#include <gtest/gtest.h>

namespace reliability {
namespace {

std::vector<TrendPoint> points(int count, double (*value)(int)) {
    std::vector<TrendPoint> all;
    for (int i = 0; i < count; ++i) all.push_back({static_cast<double>(i), value(i)});
    return all;
}

TEST(Trend, AFlatLineDoesNotRise) {
    const Trend trend = trendOf(points(30, [](int) { return 4000.0; }));
    EXPECT_DOUBLE_EQ(trend.slope, 0);
    EXPECT_FALSE(trend.risesAbove(1));
}

TEST(Trend, ASteadyRiseIsMeasuredPerMinute) {
    const Trend trend = trendOf(points(30, [](int i) { return 4000.0 + 50 * i; }));
    EXPECT_NEAR(trend.slope, 50, 1e-9);
    EXPECT_DOUBLE_EQ(trend.span, 19);
    EXPECT_TRUE(trend.risesAbove(900));
    EXPECT_FALSE(trend.risesAbove(1000));
}

TEST(Trend, TheFirstThirdIsWarmUp) {
    EXPECT_FALSE(
        trendOf(points(30, [](int i) { return i < 10 ? 100.0 * i : 1000.0; })).risesAbove(1));
}

TEST(Trend, UpsAndDownsAreNoRise) {
    EXPECT_FALSE(
        trendOf(points(30, [](int i) { return i % 2 == 0 ? 0.0 : 5000.0; })).risesAbove(100));
}

TEST(Trend, FewPointsSayNothing) {
    EXPECT_FALSE(trendOf(points(3, [](int i) { return 1000.0 * i; })).risesAbove(1));
    EXPECT_FALSE(trendOf({}).risesAbove(1));
}

}  // namespace
}  // namespace reliability
