#include "ctl/text.h"

#include <gtest/gtest.h>

#include <string>

using namespace ctl;

TEST(CtlText, ControlBytesAreShownAsEscapes) {
    EXPECT_EQ(printable("a\r\n\t\x1b[2J\x7f z"), "a\\r\\n\\t\\x1B[2J\\x7F z");
    EXPECT_EQ(printable(std::string(1, '\0')), "\\x00");
    EXPECT_EQ(printable("Grüße"), "Grüße");
}

TEST(CtlText, LongQuotesAreCut) {
    EXPECT_EQ(quote("abc"), "\"abc\"");
    EXPECT_EQ(quote(std::string(60, 'x')), '"' + std::string(60, 'x') + '"');
    EXPECT_EQ(quote(std::string(61, 'x')), '"' + std::string(60, 'x') + "...\"");
}

TEST(CtlText, HexadecimalNumbersHaveOneOrTwoDigits) {
    EXPECT_EQ(parseHexByte("0"), 0);
    EXPECT_EQ(parseHexByte("3"), 3);
    EXPECT_EQ(parseHexByte("fF"), 255);
    for (const char* text : {"", "100", "G", "-1", "0x", " 1", "1 "}) {
        EXPECT_EQ(parseHexByte(text), std::nullopt) << text;
    }
    EXPECT_EQ(hexByte(0x0A), "0A");
    EXPECT_EQ(hexByte(0xFB), "FB");
}

TEST(CtlText, DecimalNumbersAreDigitsAlone) {
    EXPECT_EQ(parseDecimal("0", 10), 0U);
    EXPECT_EQ(parseDecimal("10", 10), 10U);
    for (const char* text : {"", "11", "+1", "-1", "1x", " 1", "99999999999999"}) {
        EXPECT_EQ(parseDecimal(text, 10), std::nullopt) << text;
    }
}

TEST(CtlText, TimesArePositiveNumbers) {
    EXPECT_EQ(parsePositive("0.5", 10), 0.5);
    EXPECT_EQ(parsePositive("10", 10), 10);
    for (const char* text : {"", "0", "-1", "11", "nan", "inf", "1s", "1,5"}) {
        EXPECT_EQ(parsePositive(text, 10), std::nullopt) << text;
    }
}

TEST(CtlText, ControlsAreTypedAsLetters) {
    EXPECT_EQ(withControls("\\r\\n"), "\r\n");
    EXPECT_EQ(withControls("a;\\x\\"), "a;\\x\\");
    EXPECT_EQ(withControls(""), "");
}
