#include "common/answer_class.h"

#include <gtest/gtest.h>

namespace {

unsigned expectedClass(int firstByte) {
    switch (firstByte) {
        case 84:  // T
            return 1;
        case 0x12:
            return 2;
        case 35:  // #
        case 36:  // $
            return 3;
        case 78:  // N
            return 4;
        case 66:  // B
        case 67:  // C
            return 6;
        default:
            return 0;
    }
}

TEST(AnswerClass, AnEmptyAnswerIsClassFive) {
    EXPECT_EQ(GetQListError({}), 5U);
}

TEST(AnswerClass, EveryFirstByteHasItsClass) {
    for (int byte = 0; byte <= 255; ++byte) {
        EXPECT_EQ(GetQListError({static_cast<char>(byte)}), expectedClass(byte)) << "byte " << byte;
    }
}

TEST(AnswerClass, OnlyTheFirstByteCounts) {
    EXPECT_EQ(GetQListError({'A', 'N', 'T'}), 0U);
    EXPECT_EQ(GetQListError({'N', 'A', 'A'}), 4U);
    EXPECT_EQ(GetQListError({'\0', 'T'}), 0U);
}

TEST(AnswerClass, LettersOfOrdinaryAnswersAreUsable) {
    EXPECT_EQ(GetQListError({'L', 1}), answer_class::kUsable);
    EXPECT_EQ(GetQListError({'Q', 1}), answer_class::kUsable);
    EXPECT_EQ(GetQListError({'!', 1}), answer_class::kUsable);
    EXPECT_EQ(GetQListError({'1', 1}), answer_class::kUsable);
    EXPECT_EQ(GetQListError({'T'}), answer_class::kTimeout);
}

}  // namespace
