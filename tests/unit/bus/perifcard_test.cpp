#include "bus/perifcard.h"

#include <gtest/gtest.h>

#include "bus/wire.h"
#include "tests/support/text/bytes.h"

namespace {

std::array<char, 16> pioAnswer(const std::string& hex) {
    std::array<char, 16> answer{};
    const std::string text = bytes(hex);
    std::copy(text.begin(), text.end(), answer.begin());
    return answer;
}

std::string pioText(const PERIFCARD& card) {
    std::string text;
    for (std::size_t i = 0; i < wire::kPioBytes; ++i) text.push_back(card.pioAnswer(i));
    return hexText(text);
}

void expectEmptySlot(PERIFCARD& card) {
    EXPECT_EQ(card.cardClass, CardClass::kNone);
    EXPECT_EQ(card.dataLength, 0);
    EXPECT_EQ(card.kindCode, 0);
    EXPECT_STREQ(card.kindName, "EMPTY");
    for (std::size_t i = 0; i < PERIFCARD::kBlocks; ++i) {
        EXPECT_EQ(card.values[i], 0) << i;
        EXPECT_EQ(card.changed[i], 0) << i;
        EXPECT_EQ(card.pioAnswer(i), 0) << i;
    }
    EXPECT_FALSE(card.pollingOn);
    for (const auto& sum : card.analogueSums) EXPECT_EQ(sum, 0);
    EXPECT_EQ(card.averagingCount, 6);
    EXPECT_TRUE(card.pollFrame().empty());
}

void fill(PERIFCARD& card) {
    card.cardClass = CardClass::kInput;
    card.dataLength = 6;
    card.address = 12;
    card.kindCode = 7;
    card.kindName = "6 channel ANALOGUE INPUT";
    for (auto& value : card.values) value = 0xAA;
    for (auto& flag : card.changed) flag = 1;
    card.storePioAnswer(pioAnswer("51 0C 01 02 03 04 05 06 07 08 09 0A 0B 0C 0D 0E"));
    card.pollingOn = true;
    for (auto& sum : card.analogueSums) sum = 400;
    card.sampleCount = 4;
    card.averagingCount = 9;
    card.appendToPollFrame(byteList("20 0C 06"));
}

TEST(CardRecord, AFreshTableHasSeventeenEmptyRecords) {
    CardTable cards;
    EXPECT_EQ(cards.size(), 17U);
    for (PERIFCARD& card : cards) {
        expectEmptySlot(card);
        EXPECT_EQ(card.address, 0);
        EXPECT_EQ(card.sampleCount, 0);
    }
}

TEST(CardRecord, ClearingEmptiesAllButAddressAndSampleCount) {
    PERIFCARD card;
    fill(card);
    card.clearPerifCard();
    expectEmptySlot(card);
    EXPECT_EQ(card.address, 12);
    EXPECT_EQ(card.sampleCount, 4);
}

TEST(CardRecord, PioAnswerIsKeptWithItsFirstByteUntilItIsCleared) {
    PERIFCARD card;
    card.storePioAnswer(pioAnswer("51 03 FF 00 80"));
    EXPECT_EQ(pioText(card), "51 03 FF 00 80 00 00 00 00 00 00 00 00 00 00 00");
    card.ClearPIOAnswer();
    EXPECT_EQ(pioText(card), "00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00");
    card.storePioAnswer(pioAnswer("51 04"));
    EXPECT_EQ(card.pioAnswer(0), 'Q');
}

TEST(CardRecord, ClearingThePioAnswerLeavesTheRest) {
    PERIFCARD card;
    fill(card);
    card.ClearPIOAnswer();
    EXPECT_EQ(card.values[15], 0xAA);
    EXPECT_EQ(card.changed[15], 1);
    EXPECT_EQ(hexText(card.pollFrame()), "20 0C 06");
}

TEST(CardRecord, AShortPioAnswerLeavesNothingOfALongerOne) {
    PERIFCARD card;
    card.storePioAnswer(pioAnswer("51 03 11 22 33 44 55 66 77 88 99 AA BB CC DD EE"));
    card.storePioAnswer(pioAnswer("51 03"));
    EXPECT_EQ(pioText(card), "51 03 00 00 00 00 00 00 00 00 00 00 00 00 00 00");
}

TEST(CardRecord, PollFrameIsACopy) {
    PERIFCARD card;
    card.appendToPollFrame(byteList("20 01 02"));
    card.pollFrame().clear();
    EXPECT_EQ(hexText(card.pollFrame()), "20 01 02");
}

}  // namespace
