#include "lib/text/hexadecimal.h"

#include <gtest/gtest.h>

#include <string>

using namespace zolt_text;

namespace {

using Bytes = std::vector<std::uint8_t>;

TEST(Hexadecimal, IsWrittenInUpperCase) {
    EXPECT_EQ(hexDigit(0), "0");
    EXPECT_EQ(hexDigit(14), "E");
    EXPECT_EQ(hexByte(0x0A), "0A");
    EXPECT_EQ(hexByte(0xFB), "FB");
    EXPECT_EQ(hexBytes(Bytes{0x10, 0x0E, 0xFB}), "10 0E FB");
    EXPECT_EQ(hexBytes(Bytes{}), "");
}

TEST(Hexadecimal, DigitsOfBothCasesAreRead) {
    EXPECT_EQ(parseHexDigit('0'), 0);
    EXPECT_EQ(parseHexDigit('9'), 9);
    EXPECT_EQ(parseHexDigit('a'), 10);
    EXPECT_EQ(parseHexDigit('F'), 15);
    EXPECT_EQ(parseHexDigit("e"), 14);
    EXPECT_EQ(parseHexByte("0"), 0);
    EXPECT_EQ(parseHexByte("7"), 7);
    EXPECT_EQ(parseHexByte("fB"), 0xFB);
    EXPECT_EQ(parseHexBytes("10fF"), (Bytes{0x10, 0xFF}));
}

TEST(Hexadecimal, OtherTextsAreNotRead) {
    for (const char character : std::string("/:@G`g -\xE9") + '\0') {
        EXPECT_FALSE(parseHexDigit(character)) << character;
    }
    for (const char* text : {"", "g", "10", "-"}) {
        EXPECT_FALSE(parseHexDigit(text)) << text;
    }
    for (const char* text : {"", "100", "G", "g0", "-1", "0x", " 1", "1 "}) {
        EXPECT_FALSE(parseHexByte(text)) << text;
    }
    for (const char* text : {"", "1", "123", "1g", "1 23"}) {
        EXPECT_FALSE(parseHexBytes(text)) << text;
    }
}

}  // namespace
