#include "control/console_line.h"

#include <gtest/gtest.h>

namespace {

ConsoleLine line(const std::string& text) {
    return {text, "\r\n"};
}

TEST(ConsoleLine, IsAWordOnlyWithTheWholeSeparatorAndNothingElse) {
    EXPECT_TRUE(line("HELP\r\n").is("HELP"));
    for (const char* text : {"HELP", "HELP\r", "HELP\n", "HELP\n\r", "HELP \r\n", " HELP\r\n",
                             "HELP\r\n\r\n", "HELP\r\n ", "help\r\n", "\r\nHELP", "HEL\r\n", ""}) {
        EXPECT_FALSE(line(text).is("HELP")) << text;
    }
}

TEST(ConsoleLine, IsABareWordWithAnEmptySeparator) {
    EXPECT_TRUE(ConsoleLine("HELP", "").is("HELP"));
    EXPECT_FALSE(ConsoleLine("HELP\r\n", "").is("HELP"));
}

TEST(ConsoleLine, ContainsAWordAnywhere) {
    EXPECT_TRUE(line("POLLON:3").contains("POLLON:"));
    EXPECT_TRUE(line("xPOLLON:").contains("POLLON:"));
    EXPECT_FALSE(line("POLLON").contains("POLLON:"));
    EXPECT_FALSE(line("pollon:3").contains("POLLON:"));
    EXPECT_TRUE(line("").contains(""));
}

TEST(ConsoleLine, IsTerminatedByTheWholeSeparatorAnywhere) {
    EXPECT_TRUE(line("a\r\n").isTerminated());
    EXPECT_TRUE(line("\r\na").isTerminated());
    EXPECT_FALSE(line("a\r").isTerminated());
    EXPECT_FALSE(line("a\n").isTerminated());
    EXPECT_FALSE(line("a\n\r").isTerminated());
    EXPECT_FALSE(line("").isTerminated());
    EXPECT_TRUE(ConsoleLine("", "").isTerminated());
    EXPECT_TRUE(ConsoleLine("a", "").isTerminated());
}

TEST(ConsoleLine, FindsPartsAtTheFirstColon) {
    EXPECT_EQ(line("SETSCB2:3=80").atColon(-2), "B");
    EXPECT_EQ(line("SETSCB2:3=80").atColon(-1), "2");
    EXPECT_EQ(line("SETSCB2:3=80").atColon(1), "3");
    EXPECT_EQ(line("a1:x b2:y").atColon(1), "x");
    EXPECT_EQ(line("a1:x b2:y").atColon(-1), "1");
    EXPECT_EQ(line("a::b").atColon(1), ":");
}

TEST(ConsoleLine, WithoutAColonTheAddressIsTheFirstCharacter) {
    EXPECT_EQ(line("SETSC").atColon(1), "S");
    EXPECT_EQ(line("SETSC").atColon(-1), "");
    EXPECT_EQ(line("SETSC").atColon(-2), "");
    EXPECT_EQ(line("").atColon(1), "");
}

TEST(ConsoleLine, PartsOutsideTheLineAreEmpty) {
    EXPECT_EQ(line(":5").atColon(-1), "");
    EXPECT_EQ(line(":5").atColon(-2), "");
    EXPECT_EQ(line("A:5").atColon(-1), "A");
    EXPECT_EQ(line("A:5").atColon(-2), "");
    EXPECT_EQ(line("A:").atColon(1), "");
    EXPECT_EQ(line(":").atColon(1), "");
}

TEST(ConsoleLine, FindsValuesAfterTheFirstEqualsSign) {
    EXPECT_EQ(line("x=80\r\n").afterEquals(2), "80");
    EXPECT_EQ(line("x=80\r\n").afterEquals(1), "8");
    EXPECT_EQ(line("x=12 y=34").afterEquals(2), "12");
    EXPECT_EQ(line("x==1").afterEquals(2), "=1");
    EXPECT_EQ(line("x=3\r\n").afterEquals(2), "3\r");
}

TEST(ConsoleLine, WithoutAnEqualsSignAValueIsTheStartOfTheLine) {
    EXPECT_EQ(line("SETANMASK:5").afterEquals(2), "SE");
    EXPECT_EQ(line("GETLASTINPST:5").afterEquals(1), "G");
    EXPECT_EQ(line("S").afterEquals(2), "S");
    EXPECT_EQ(line("").afterEquals(2), "");
}

TEST(ConsoleLine, AValueHasAsManyCharactersAsThereAre) {
    EXPECT_EQ(line("x=").afterEquals(2), "");
    EXPECT_EQ(line("x=1").afterEquals(2), "1");
    EXPECT_EQ(line("=").afterEquals(1), "");
}

TEST(ConsoleLine, ADigitIsUpperCaseHexadecimalAndAnythingElseIsZero) {
    for (unsigned value = 0; value < 16; ++value) {
        EXPECT_EQ(digitOf(std::string(1, "0123456789ABCDEF"[value])), value);
    }
    for (const char* text : {"", "a", "f", "g", "G", "S", "/", ":", "@", " ", "\r", "\xFF"}) {
        EXPECT_EQ(digitOf(text), 0U) << text;
    }
}

TEST(ConsoleLine, AByteHasTheHighDigitFirst) {
    EXPECT_EQ(byteOf("00"), 0x00);
    EXPECT_EQ(byteOf("3F"), 0x3F);
    EXPECT_EQ(byteOf("F0"), 0xF0);
    EXPECT_EQ(byteOf("FF"), 0xFF);
    EXPECT_EQ(byteOf("ff"), 0x00);
    EXPECT_EQ(byteOf("xF"), 0x0F);
    EXPECT_EQ(byteOf("SE"), 0x0E);
}

TEST(ConsoleLine, AOneDigitByteIsTheHighDigit) {
    EXPECT_EQ(byteOf("3"), 0x30);
    EXPECT_EQ(byteOf("3\r"), 0x30);
    EXPECT_EQ(byteOf(""), 0x00);
}

TEST(ConsoleLine, MatchesAKeywordAsTheRowSays) {
    const ConsoleLine whole("WORD\r\n", "\r\n");
    const ConsoleLine inside("a WORD b\r\n", "\r\n");
    const ConsoleLine open("WORD", "\r\n");
    EXPECT_TRUE(matches(whole, "WORD", Match::kExact));
    EXPECT_FALSE(matches(inside, "WORD", Match::kExact));
    EXPECT_FALSE(matches(open, "WORD", Match::kExact));
    EXPECT_TRUE(matches(whole, "WORD", Match::kContains));
    EXPECT_TRUE(matches(inside, "WORD", Match::kContains));
    EXPECT_FALSE(matches(open, "WORD", Match::kContains));
    EXPECT_TRUE(matches(whole, "WORD", Match::kKeywordOnly));
    EXPECT_TRUE(matches(inside, "WORD", Match::kKeywordOnly));
    EXPECT_TRUE(matches(open, "WORD", Match::kKeywordOnly));
    for (const Match match : {Match::kExact, Match::kContains, Match::kKeywordOnly}) {
        EXPECT_FALSE(matches(whole, "Word", match));
    }
}

}  // namespace
