#include "apps/zolt-sim/text.h"

#include <gtest/gtest.h>

namespace sim {
namespace {

TEST(Text, WritesBytesInUpperCase) {
    EXPECT_EQ(hexByte(0x0A), "0A");
    EXPECT_EQ(hexByte(0xFF), "FF");
    EXPECT_EQ(hexBytes({0x10, 0x0E, 0xFB}), "10 0E FB");
    EXPECT_EQ(hexBytes({}), "");
    EXPECT_EQ(hexDigit(14), "E");
    EXPECT_EQ(hexDigit(0), "0");
}

TEST(Text, ReadsHexadecimalInBothCases) {
    EXPECT_EQ(parseHexDigit("e"), 14);
    EXPECT_EQ(parseHexDigit("E"), 14);
    EXPECT_EQ(parseHexByte("fB"), 0xFB);
    EXPECT_EQ(parseHexByte("7"), 7);
    EXPECT_EQ(parseHexBytes("10fF"), (Bytes{0x10, 0xFF}));
}

TEST(Text, RefusesWhatIsNotHexadecimal) {
    for (const char* text : {"", "g", "10", "-"}) {
        EXPECT_FALSE(parseHexDigit(text)) << text;
    }
    for (const char* text : {"", "100", "g0", "0x", " 1"}) {
        EXPECT_FALSE(parseHexByte(text)) << text;
    }
    for (const char* text : {"", "1", "123", "1g"}) {
        EXPECT_FALSE(parseHexBytes(text)) << text;
    }
}

TEST(Text, ReadsDecimalUpToTheLargest) {
    EXPECT_EQ(parseDecimal("0", 15), 0U);
    EXPECT_EQ(parseDecimal("015", 15), 15U);
    EXPECT_FALSE(parseDecimal("16", 15));
    EXPECT_FALSE(parseDecimal("", 15));
    EXPECT_FALSE(parseDecimal("-1", 15));
    EXPECT_FALSE(parseDecimal("99999999999999999999999", 4000000000U));
}

TEST(Text, SplitsWordsAndLines) {
    EXPECT_EQ(splitWords(" press\t3  6 "), (std::vector<std::string>{"press", "3", "6"}));
    EXPECT_TRUE(splitWords(" \t").empty());
    EXPECT_EQ(splitLines("a\r\n\nb"), (std::vector<std::string>{"a", "", "b"}));
    EXPECT_EQ(splitLines("a\n"), (std::vector<std::string>{"a"}));
}

TEST(Text, CutsComments) {
    EXPECT_EQ(withoutComment("  3 servo  # the arm"), "3 servo");
    EXPECT_EQ(withoutComment("# only"), "");
    EXPECT_EQ(withoutComment(""), "");
}

TEST(Text, QuotesWhatDoesNotPrint) {
    EXPECT_EQ(quoted({'a', ' ', '"', 0x07, '\\', 0xE9}), "\"a \\x22\\x07\\x5C\\xE9\"");
}

}  // namespace
}  // namespace sim
