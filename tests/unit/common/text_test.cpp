#include "common/text.h"

#include <gtest/gtest.h>

#include <csignal>
#include <limits>
#include <string>

namespace {

using testing::KilledBySignal;

constexpr long kLongMax = std::numeric_limits<long>::max();
constexpr long kLongMin = std::numeric_limits<long>::min();
constexpr int kIntMax = std::numeric_limits<int>::max();
constexpr int kIntMin = std::numeric_limits<int>::min();

int digitValue(char c) {
    const auto at = std::string("0123456789ABCDEF").find(c);
    return at == std::string::npos ? 0 : static_cast<int>(at);
}

TEST(Text, NumbersAreReadFromTheStart) {
    EXPECT_EQ(ATOL("12ab"), 12);
    EXPECT_EQ(ATOL("ab"), 0);
    EXPECT_EQ(ATOL(""), 0);
    EXPECT_EQ(ATOL(" \t\n-7 "), -7);
    EXPECT_EQ(ATOL("+8"), 8);
    EXPECT_EQ(ATOL("- 8"), 0);
    EXPECT_EQ(ATOL("010"), 10);
    EXPECT_EQ(ATOL("0x10"), 0);
    EXPECT_EQ(ATOL(std::string("1\0002", 3)), 1);
}

TEST(Text, NumbersAreAsWideAsLongAndSaturate) {
    EXPECT_EQ(ATOL("4294967346"), 4294967346);
    EXPECT_EQ(ATOL(std::to_string(kLongMax)), kLongMax);
    EXPECT_EQ(ATOL("99999999999999999999"), kLongMax);
    EXPECT_EQ(ATOL("-99999999999999999999"), kLongMin);
}

TEST(Text, NumbersAreWrittenInDecimal) {
    EXPECT_EQ(ITOA(0), "0");
    EXPECT_EQ(ITOA(-15), "-15");
    EXPECT_EQ(ITOA(kIntMax), "2147483647");
    EXPECT_EQ(ITOA(kIntMin), "-2147483648");
    for (int number = -1000; number <= 1000; ++number) {
        EXPECT_EQ(ATOL(ITOA(number)), number);
    }
}

TEST(Text, TruthIsWrittenInUpperCase) {
    EXPECT_EQ(BTOA(true), "TRUE");
    EXPECT_EQ(BTOA(false), "FALSE");
}

TEST(Text, ThreeSpellingsAreTrue) {
    for (const char* text : {"True", "true", "TRUE"}) {
        EXPECT_TRUE(ATOB(text)) << text;
    }
    for (const char* text :
         {"", "yes", "1", "TRUE ", " TRUE", "tRUE", "TrUe", "TRUE\n", "FALSE", "false", "T"}) {
        EXPECT_FALSE(ATOB(text)) << '"' << text << '"';
    }
    EXPECT_FALSE(ATOB(std::string("TRUE\0", 5)));
}

TEST(Text, ACharacterBufferBecomesAString) {
    EXPECT_EQ(Convert_CharBuff2String(""), "");
    EXPECT_EQ(Convert_CharBuff2String("a5%s"), "a5%s");
    const std::string text(999, 'x');
    EXPECT_EQ(Convert_CharBuff2String(text.c_str()), text);
}

TEST(TextDeathTest, ACharacterBufferOfAThousandEndsTheProcess) {
    EXPECT_EXIT(Convert_CharBuff2String(std::string(1000, 'x').c_str()), KilledBySignal(SIGABRT),
                "");
}

TEST(Text, OnlyUpperCaseHexadecimalDigitsCount) {
    for (int byte = 0; byte <= 255; ++byte) {
        const char c = static_cast<char>(byte);
        EXPECT_EQ(HexCharToByte(c), digitValue(c)) << "byte " << byte;
    }
    EXPECT_EQ(HexCharToByte('a'), 0);
    EXPECT_EQ(HexCharToByte('f'), 0);
}

TEST(Text, TwoDigitsMakeAByte) {
    EXPECT_EQ(HexNum2Byte('F', 'F'), static_cast<char>(255));
    EXPECT_EQ(HexNum2Byte('F', 'F'), -1);
    EXPECT_EQ(HexNum2Byte('f', 'f'), 0);
    EXPECT_EQ(HexNum2Byte('1', 'A'), 26);
    for (int high = 0; high <= 255; ++high) {
        for (int low = 0; low <= 255; ++low) {
            const char h = static_cast<char>(high);
            const char l = static_cast<char>(low);
            ASSERT_EQ(HexNum2Byte(h, l), static_cast<char>(digitValue(h) * 16 + digitValue(l)))
                << "bytes " << high << " and " << low;
        }
    }
}

TEST(Text, AHexadecimalTextGivesTheByteOfItsFirstTwoDigits) {
    EXPECT_EQ(Convert_HexStr2Byte("7"), 7);
    EXPECT_EQ(Convert_HexStr2Byte("1A"), 26);
    EXPECT_EQ(Convert_HexStr2Byte("1A3"), 26);
    EXPECT_EQ(Convert_HexStr2Byte("1A34"), 26);
    EXPECT_EQ(Convert_HexStr2Byte("FF"), -1);
    EXPECT_EQ(Convert_HexStr2Byte("ff"), 0);
    EXPECT_EQ(Convert_HexStr2Byte(""), 0);
}

TEST(TextDeathTest, AHexadecimalTextOfFiveEndsTheProcess) {
    EXPECT_EXIT(Convert_HexStr2Byte("1A345"), KilledBySignal(SIGABRT), "");
    EXPECT_EXIT(Convert_HexStr2Byte(std::string(100, '0')), KilledBySignal(SIGABRT), "");
}

}  // namespace
