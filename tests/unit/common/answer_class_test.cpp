#include "common/answer_class.h"

#include <gtest/gtest.h>

namespace {

AnswerClass expectedClass(int firstByte) {
    switch (firstByte) {
        case 84:  // T
            return AnswerClass{1};
        case 0x12:
            return AnswerClass{2};
        case 35:  // #
        case 36:  // $
            return AnswerClass{3};
        case 78:  // N
            return AnswerClass{4};
        case 66:  // B
        case 67:  // C
            return AnswerClass{6};
        default:
            return AnswerClass{0};
    }
}

TEST(AnswerClass, AnEmptyAnswerIsClassFive) {
    EXPECT_EQ(GetQListError({}), AnswerClass{5});
}

TEST(AnswerClass, EveryFirstByteHasItsClass) {
    for (int byte = 0; byte <= 255; ++byte) {
        EXPECT_EQ(GetQListError({static_cast<char>(byte)}), expectedClass(byte)) << "byte " << byte;
    }
}

TEST(AnswerClass, OnlyTheFirstByteCounts) {
    EXPECT_EQ(GetQListError({'A', 'N', 'T'}), AnswerClass{0});
    EXPECT_EQ(GetQListError({'N', 'A', 'A'}), AnswerClass{4});
    EXPECT_EQ(GetQListError({'\0', 'T'}), AnswerClass{0});
}

TEST(AnswerClass, LettersOfOrdinaryAnswersAreUsable) {
    EXPECT_EQ(GetQListError({'L', 1}), AnswerClass::kUsable);
    EXPECT_EQ(GetQListError({'Q', 1}), AnswerClass::kUsable);
    EXPECT_EQ(GetQListError({'!', 1}), AnswerClass::kUsable);
    EXPECT_EQ(GetQListError({'1', 1}), AnswerClass::kUsable);
    EXPECT_EQ(GetQListError({'T'}), AnswerClass::kTimeout);
}

}  // namespace
