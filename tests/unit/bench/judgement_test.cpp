#include "bench/report/judgement.h"

#include <gtest/gtest.h>

namespace bench {
namespace {

TEST(LinkLosses, AreTimeOutsOfALinkThatWasFound) {
    EXPECT_EQ(linkLosses(""), 0U);
    EXPECT_EQ(linkLosses("a: hardware found on /dev/ttyUSB0 version: 1\n"
                         "b: comm timeout /dev/ttyUSB0\n"
                         "c: hardware found on /dev/ttyUSB0 version: 1\n"
                         "d: comm timeout /dev/ttyUSB0\n"),
              2U);
}

TEST(LinkLosses, AreNotThoseOfAPortUnderTest) {
    EXPECT_EQ(linkLosses("a: comm timeout /dev/ttyUSB0\n"
                         "b: hardware found on /dev/ttyUSB1 version: 1\n"
                         "c: comm timeout /dev/ttyUSB1\n"
                         "d: comm timeout /dev/ttyUSB0\n"),
              1U);
}

TEST(InStep, AllowsOnePollMoreOrLess) {
    EXPECT_TRUE(inStep({7, 8, 6, 7}, 4));
    EXPECT_FALSE(inStep({7, 9, 7, 7}, 4));
    EXPECT_FALSE(inStep({7, 5, 7, 7}, 4));
}

TEST(InStep, RefusesPollsOfOtherCardsAndNone) {
    EXPECT_FALSE(inStep({7, 7, 1}, 2));
    EXPECT_FALSE(inStep({0, 0}, 2));
    EXPECT_FALSE(inStep({0, 1}, 2));
}

TEST(Missing, IsWhatWasSentAndDidNotArrive) {
    EXPECT_EQ(missing({1, 2, 3}, {3, 1, 2}), 0U);
    EXPECT_EQ(missing({1, 2, 3}, {1, 3}), 1U);
    EXPECT_EQ(missing({1, 2, 1}, {1}), 2U);
    EXPECT_EQ(missing({1, 2}, {}), 2U);
}

TEST(Missing, IsNotMadeUpForByWhatWasNeverSent) {
    EXPECT_EQ(missing({1, 2}, {1, 255}), 1U);
    EXPECT_EQ(missing({1, 2}, {1, 1}), 1U);
}

}  // namespace
}  // namespace bench
