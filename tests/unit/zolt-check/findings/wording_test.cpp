#include "apps/zolt-check/findings/wording.h"

#include <gtest/gtest.h>

#include "core/speed.h"

namespace {

using namespace zolt_check;

TEST(Wording, ShowsEveryByteOfASeparator) {
    EXPECT_EQ(shownSeparator("\r\n\t\\x;\x01"), R"("\r\n\t\\x;\x01")");
    EXPECT_EQ(shownSeparator(std::string(500, 'x')), '"' + std::string(500, 'x') + '"');
}

TEST(Wording, SaysNothingAboutANumberThatAPersonReadsTheSame) {
    for (const char* typed : {"50", " 50", "+50", "050", "50 ", "\t50\n"}) {
        EXPECT_EQ(whyCounted(typed, 50), "") << typed;
        EXPECT_EQ(asCounted("Percent", typed, 50), "Percent 50") << typed;
    }
    EXPECT_EQ(whyCounted("-0", 0), "");
    EXPECT_EQ(whyCounted("-7", -7), "");
}

TEST(Wording, SaysWhyANumberCountsAsAnother) {
    EXPECT_EQ(whyCounted("", 0), "it is not a number");
    EXPECT_EQ(whyCounted("fast", 0), "it is not a number");
    EXPECT_EQ(whyCounted("-", 0), "it is not a number");
    EXPECT_EQ(whyCounted("50x", 50), "the text after the number is ignored");
    EXPECT_EQ(whyCounted("4294967297", 1), "it is too large");
    EXPECT_EQ(asCounted("Percent", "50x", 50), "Percent \"50x\" (counts as 50)");
}

TEST(Wording, TakesAPauseAsANumberWithoutASign) {
    EXPECT_EQ(pauseText(2525), "2525 microseconds");
    EXPECT_EQ(pauseText(-49), "71 minutes");
    EXPECT_EQ(pauseOf(-49), 4294967247U);
}

TEST(Wording, GivesThePercentOfAPause) {
    EXPECT_EQ(percentOfDelay(5000), 1);
    EXPECT_EQ(percentOfDelay(2525), 50);
    EXPECT_EQ(percentOfDelay(1), 100);
    EXPECT_EQ(percentOfDelay(5050), 0);
    EXPECT_EQ(percentOfDelay(-5048), 200);
    for (long percent = -200; percent <= 300; ++percent) {
        EXPECT_EQ(percentOfDelay(threadDelayOfPercent(percent)), percent);
    }
    EXPECT_EQ(percentOfDelay(threadDelayOfPercent(99999999999)), std::nullopt);
    EXPECT_EQ(percentOfDelay(threadDelayOfPercent(-99999999999)), std::nullopt);
}

TEST(Wording, NamesALine) {
    EXPECT_EQ(inLine({7, 3}), "line 7");
}

}  // namespace
