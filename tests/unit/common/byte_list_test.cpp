#include "common/byte_list.h"

#include <gtest/gtest.h>

#include <array>
#include <csignal>
#include <limits>
#include <string>

namespace {

using testing::KilledBySignal;

/// All bytes but 0, in order.
std::string everyCharacter() {
    std::string text;
    for (int byte = 1; byte <= 255; ++byte) {
        text += static_cast<char>(byte);
    }
    return text;
}

TEST(ByteList, CharactersAreSigned) {
    EXPECT_LT(static_cast<int>(static_cast<char>(200)), 0);
    EXPECT_TRUE(std::numeric_limits<char>::is_signed);
}

TEST(ByteList, AnEmptyStringGivesOneZeroButAnEmptyBufferGivesNothing) {
    EXPECT_EQ(Convert_String2QList(""), ByteList{'\0'});
    EXPECT_EQ(Convert_CharBuff2QList(""), ByteList{});
}

TEST(ByteList, AStringBecomesItsCharactersInOrder) {
    EXPECT_EQ(Convert_String2QList("a5b"), (ByteList{'a', '5', 'b'}));
    EXPECT_EQ(Convert_CharBuff2QList("a5b"), (ByteList{'a', '5', 'b'}));
}

TEST(ByteList, TheFirstCharacterOfAStringIsTakenEvenWhenItIsZero) {
    EXPECT_EQ(Convert_String2QList(std::string("\0AB\0C", 5)), (ByteList{'\0', 'A', 'B'}));
    EXPECT_EQ(Convert_String2QList(std::string("\0\0AB", 4)), ByteList{'\0'});
    EXPECT_EQ(Convert_String2QList(std::string("AB\0C", 4)), (ByteList{'A', 'B'}));
    EXPECT_EQ(Convert_CharBuff2QList("\0AB"), ByteList{});
}

TEST(ByteList, EveryCharacterSurvivesTheWayThereAndBack) {
    const std::string text = everyCharacter();
    EXPECT_EQ(Convert_QList2String(Convert_String2QList(text)), text);
    EXPECT_EQ(Convert_QList2String(Convert_CharBuff2QList(text.c_str())), text);
}

TEST(ByteList, AListBecomesATextThatEndsAtTheFirstZero) {
    EXPECT_EQ(Convert_QList2String({'A', '\0', 'B'}), "A");
    EXPECT_EQ(Convert_QList2String({'\0', 'B'}), "");
    EXPECT_EQ(Convert_QList2String({}), "");
    EXPECT_EQ(Convert_QList2String({'A', 'B'}), "AB");
}

TEST(ByteList, ACountedBufferIsReadBySignedCount) {
    std::array<char, 256> buffer{};
    buffer.fill('x');
    for (int count = 0; count <= 255; ++count) {
        buffer[0] = static_cast<char>(count);
        const std::size_t expected = count < 128 ? static_cast<std::size_t>(count) : 0;
        EXPECT_EQ(Convert_BinBuff2QList(buffer.data()), ByteList(expected, 'x'))
            << "count " << count;
    }
}

TEST(ByteList, ACountedBufferMayHoldZeros) {
    const std::array<char, 5> buffer{3, '\0', 'A', '\0', 'B'};
    EXPECT_EQ(Convert_BinBuff2QList(buffer.data()), (ByteList{'\0', 'A', '\0'}));
}

TEST(ByteList, AListIsWrittenWithoutCountAndTerminator) {
    std::array<char, 6> buffer{'-', '-', '-', '-', '-', '-'};
    Convert_QList2BinBuff({'\0', 'A', static_cast<char>(0xFF), '\0'}, buffer.data());
    EXPECT_EQ(buffer, (std::array<char, 6>{'\0', 'A', static_cast<char>(0xFF), '\0', '-', '-'}));
    Convert_QList2BinBuff({}, buffer.data());
    EXPECT_EQ(buffer[0], '\0');
    EXPECT_EQ(buffer[5], '-');
}

TEST(ByteList, ConversionsLeaveTheCallersListAlone) {
    const ByteList list{'A', '\0', 'B'};
    ByteList copy = list;
    std::array<char, 3> buffer{};
    Convert_QList2String(copy);
    Convert_QList2BinBuff(copy, buffer.data());
    EXPECT_EQ(copy, list);
}

TEST(ByteList, NineHundredNinetyNineCharactersAreFine) {
    const std::string text(999, 'x');
    EXPECT_EQ(Convert_String2QList(text), ByteList(999, 'x'));
    EXPECT_EQ(Convert_QList2String(ByteList(999, 'x')), text);
}

TEST(ByteListDeathTest, AThousandCharactersEndTheProcess) {
    EXPECT_EXIT(Convert_String2QList(std::string(1000, 'x')), KilledBySignal(SIGABRT), "");
    EXPECT_EXIT(Convert_String2QList(std::string(5000, 'x')), KilledBySignal(SIGABRT), "");
    EXPECT_EXIT(Convert_QList2String(ByteList(1000, 'x')), KilledBySignal(SIGABRT), "");
}

TEST(ByteListDeathTest, TheLimitCountsTheBytesAfterTheFirstZeroToo) {
    ByteList list(1000, 'x');
    list.front() = '\0';
    EXPECT_EXIT(Convert_QList2String(list), KilledBySignal(SIGABRT), "");
    list.pop_back();
    EXPECT_EQ(Convert_QList2String(list), "");
}

TEST(ByteList, ACharacterBufferOfAThousandIsNotLimited) {
    EXPECT_EQ(Convert_CharBuff2QList(std::string(1000, 'x').c_str()), ByteList(1000, 'x'));
}

}  // namespace
