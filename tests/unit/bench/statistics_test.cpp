#include "bench/report/statistics.h"

#include <gtest/gtest.h>

#include "bench/report/number_text.h"
#include "bench/report/results.h"

namespace bench {
namespace {

TEST(Median, IsTheMiddleOfAnOddNumber) {
    EXPECT_EQ(median({9, 1, 5}), 5);
}

TEST(Median, IsTheMeanOfTheTwoInTheMiddle) {
    EXPECT_EQ(median({4, 1, 2, 9}), 3);
    EXPECT_EQ(median({}), 0);
}

TEST(Percentile, IsTheSmallestValueThatSoManyDoNotExceed) {
    std::vector<double> values;
    for (int i = 200; i >= 1; --i) values.push_back(i);
    EXPECT_EQ(percentile(values, 50), 100);
    EXPECT_EQ(percentile(values, 99), 198);
    EXPECT_EQ(percentile(values, 100), 200);
    EXPECT_EQ(percentile({7}, 99), 7);
    EXPECT_EQ(percentile({}, 99), 0);
}

TEST(Histogram, CountsWholeMicroseconds) {
    Histogram histogram;
    for (const double late : {0.9, 3.2, 3.9, 8.0}) histogram.add(late);
    EXPECT_EQ(histogram.count(), 4U);
    EXPECT_EQ(histogram.percentile(50), 3);
    EXPECT_EQ(histogram.percentile(99), 8);
    EXPECT_EQ(Histogram().percentile(50), 0);
}

TEST(Histogram, KeepsWhatExceedsItsRangeAtItsEnd) {
    Histogram histogram;
    histogram.add(-1);
    histogram.add(1e9);
    EXPECT_EQ(histogram.percentile(50), 0);
    EXPECT_EQ(histogram.percentile(99), 4999);
}

TEST(Histogram, TakesAnotherIn) {
    Histogram all;
    Histogram other;
    all.add(1);
    other.add(5);
    other.add(6);
    all.add(other);
    EXPECT_EQ(all.count(), 3U);
    EXPECT_EQ(all.percentile(50), 5);
}

TEST(Results, TellTheMedianOfTheRounds) {
    Results results;
    for (const double value : {3.0, 1.0, 2.0}) results.add("figure", "zolt", value);
    EXPECT_EQ(results.value("figure", "zolt"), 2);
    EXPECT_EQ(results.sum("figure", "zolt"), 6);
    EXPECT_EQ(results.value("figure", "other"), std::nullopt);
    EXPECT_EQ(results.value("other", "zolt"), std::nullopt);
}

TEST(Results, CompareRoundByRound) {
    Results results;
    for (const double value : {10.0, 90.0, 30.0}) results.add("figure", "zolt", value);
    for (const double value : {10.0, 30.0, 60.0}) results.add("figure", "bare", value);
    EXPECT_EQ(results.ratio("figure", "zolt", "bare"), 1);
}

TEST(Results, DoNotCompareWithNothing) {
    Results results;
    results.add("figure", "zolt", 1);
    EXPECT_EQ(results.ratio("figure", "zolt", "bare"), std::nullopt);
    results.add("figure", "bare", 0);
    EXPECT_EQ(results.ratio("figure", "zolt", "bare"), std::nullopt);
}

TEST(Results, CompareTheRoundsThatBothHave) {
    Results results;
    for (const double value : {10.0, 20.0, 900.0}) results.add("figure", "zolt", value);
    for (const double value : {20.0, 20.0}) results.add("figure", "bare", value);
    EXPECT_EQ(results.ratio("figure", "zolt", "bare"), 0.75);
}

TEST(NumberText, HasSoManyDigits) {
    EXPECT_EQ(numberText(1.2345, 2), "1.23");
    EXPECT_EQ(numberText(1234567, 0), "1234567");
    EXPECT_EQ(numberText(-3.5, 1), "-3.5");
    EXPECT_EQ(numberText(-0.001, 2), "0.00");
}

}  // namespace
}  // namespace bench
