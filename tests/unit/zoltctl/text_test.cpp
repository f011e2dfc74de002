#include "apps/zoltctl/output/text.h"

#include <gtest/gtest.h>

#include <string>

using namespace ctl;

TEST(CtlText, ControlBytesAreShownAsEscapes) {
    EXPECT_EQ(printable("a\r\n\t\x1b[2J\x7f z"), "a\\r\\n\\t\\x1B[2J\\x7F z");
    EXPECT_EQ(printable(std::string(1, '\0')), "\\x00");
    EXPECT_EQ(printable("Grüße, 世界, 🐈"), "Grüße, 世界, 🐈");
}

TEST(CtlText, BytesThatAreNoTextAreShownAsEscapes) {
    EXPECT_EQ(printable("a\xFFz"), "a\\xFFz");
    EXPECT_EQ(printable("\x9B"), "\\x9B");           // a control character of 8 bits
    EXPECT_EQ(printable("\xC2\x9B"), "\\xC2\\x9B");  // the same as UTF-8
    EXPECT_EQ(printable("\xC2\xA0"), "\xC2\xA0");
    EXPECT_EQ(printable("\xC1\x81"), "\\xC1\\x81");                    // longer than needed
    EXPECT_EQ(printable("\xE2\x82"), "\\xE2\\x82");                    // cut
    EXPECT_EQ(printable("\xED\xA0\x80"), "\\xED\\xA0\\x80");           // half a pair
    EXPECT_EQ(printable("\xF4\x90\x80\x80"), "\\xF4\\x90\\x80\\x80");  // beyond the last
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
