#include <gtest/gtest.h>

#include "bus/card_kinds.h"
#include "tests/unit/bus/link_fixture.h"

namespace {

class SerialAnswers : public LinkFixture {
  protected:
    void insertCard(std::size_t address, char kind) {
        setUpCard(cards_[address], static_cast<std::uint8_t>(address), kind);
    }
};

class DroppedAnswer : public SerialAnswers, public testing::WithParamInterface<const char*> {};

TEST_P(DroppedAnswer, ChangesNothing) {
    connect();
    queue(3, "20 03 02");
    queue(4, "20 04 02");
    line_.answer(GetParam());
    line_.answer("03 51 04 77");
    link_->OnTask();
    EXPECT_EQ(line_.takeWrites(), (Texts{"03 20 03 02", "03 20 04 02"}));
    EXPECT_TRUE(linkReady());
    EXPECT_EQ(logged(), Texts{});
    EXPECT_EQ(reported(), Texts{});
    EXPECT_EQ(cards_[3].pioAnswer(0), 0);
    EXPECT_EQ(cards_[4].pioAnswer(2), 0x77);
}

// The classes 2 to 6, and first bytes of class 0 that mean nothing here.
INSTANTIATE_TEST_SUITE_P(SerialAnswers, DroppedAnswer,
                         testing::Values("03 12 03 FF", "03 23 03 FF", "03 24 03 FF", "02 4E 03",
                                         "00", "03 42 03 FF", "03 43 03 FF", "01 06", "03 00 03 FF",
                                         "03 4C 43 45", "03 20 03 02"));

TEST_F(SerialAnswers, DiscoveryWritesAllSixteenRecords) {
    connect();
    for (PERIFCARD& card : cards_) card.kindCode = 99;
    exchange("11 31 00 01 02 03 04 05 06 07 08 09 0A 0B FF 00 00 04");
    const std::array<const char*, 16> names{"EMPTY",
                                            "UNIDENTIFIED",
                                            "UNIDENTIFIED",
                                            "16 channel DIGITAL OUTPUT",
                                            "16 channel DIGITAL INPUT",
                                            "6 channel RC SERVO CONTROLLER",
                                            "3 channel DC MOTOR CONTROLLER",
                                            "6 channel ANALOGUE INPUT",
                                            "KEYMX and ROTE CONTROLLER",
                                            "ALPHANUMERIC LCD CONTROLLER",
                                            "IR REMOTE CONTROLLER",
                                            "UNIDENTIFIED",
                                            "UNIDENTIFIED",
                                            "EMPTY",
                                            "EMPTY",
                                            "16 channel DIGITAL INPUT"};
    for (std::size_t i = 0; i < names.size(); ++i) {
        EXPECT_STREQ(cards_[i].kindName, names[i]) << i;
        EXPECT_EQ(cards_[i].address, i);
    }
    EXPECT_EQ(hexText(cards_[15].pollFrame()), "20 0F 02");
    EXPECT_EQ(cards_[16].kindCode, 99) << "the record after the last address";
}

TEST_F(SerialAnswers, AnUnknownKindIsUnidentified) {
    connect();
    exchange("11 31 00 00 00 00 00 02 00 00 00 00 00 00 00 00 00 00");
    EXPECT_STREQ(cards_[5].kindName, "UNIDENTIFIED");
    EXPECT_EQ(cards_[5].cardClass, CardClass::kNone);
    EXPECT_EQ(cards_[5].kindCode, 2);
}

TEST_F(SerialAnswers, AShortDiscoveryAnswerLeavesTheRestEmpty) {
    connect();
    insertCard(9, card_kind::kLcd);
    exchange("03 31 00 03");
    EXPECT_STREQ(cards_[1].kindName, "16 channel DIGITAL OUTPUT");
    EXPECT_STREQ(cards_[2].kindName, "EMPTY");
    EXPECT_STREQ(cards_[9].kindName, "EMPTY");
}

TEST_F(SerialAnswers, AnswersAreActedOnWhateverWasAsked) {
    connect();
    queue(3, "20 03 02");
    line_.answer("11 31 00 00 00 04 00 00 00 00 00 00 00 00 00 00 00 00");
    link_->OnTask();
    EXPECT_EQ(hexText(cards_[3].pollFrame()), "20 03 02");
    queue(5, "10 05 02 FF FF");
    line_.answer("04 21 03 40 00");
    link_->OnTask();
    EXPECT_EQ(reported(), Texts{"a3b0d40"});
}

TEST_F(SerialAnswers, KeepsSixteenBytesOfAPioAnswer) {
    connect();
    exchange("12 51 03 01 02 03 04 05 06 07 08 09 0A 0B 0C 0D 0E 0F 10");
    EXPECT_EQ(pioAnswer(3), "51 03 01 02 03 04 05 06 07 08 09 0A 0B 0C 0D 0E");
    exchange("02 51 03");
    EXPECT_EQ(pioAnswer(3), "51 03 00 00 00 00 00 00 00 00 00 00 00 00 00 00");
}

TEST_F(SerialAnswers, AOneByteAnswerNamesCardZero) {
    connect();
    exchange("01 51");
    EXPECT_EQ(cards_[0].pioAnswer(0), 'Q');
}

TEST_F(SerialAnswers, APioAnswerRepeatsTheReportsOfTheLastPoll) {
    connect();
    insertCard(3, card_kind::kDigitalInput);
    exchange("04 21 03 00 40");
    EXPECT_EQ(reported(), Texts{"a3b1d40"});
    exchange("04 51 03 01 02");
    EXPECT_EQ(reported(), Texts{"a3b1d40"});
    exchange("04 21 03 00 40");
    exchange("04 51 03 01 02");
    EXPECT_EQ(reported(), Texts{});
}

TEST_F(SerialAnswers, ReportsEachChangedBlockAsOneItem) {
    connect();
    insertCard(3, card_kind::kDigitalInput);
    exchange("04 21 03 40 01");
    EXPECT_EQ(reported(), (Texts{"a3b0d40", "a3b1d01"}));
    exchange("04 21 03 40 01");
    EXPECT_EQ(reported(), Texts{});
}

TEST_F(SerialAnswers, MissingDataOfAShortPollAnswerIsZero) {
    connect();
    insertCard(3, card_kind::kDigitalInput);
    exchange("04 21 03 40 01");
    reported();
    exchange("03 21 03 40");
    EXPECT_EQ(reported(), Texts{"a3b1d00"});
    exchange("02 21 03");
    EXPECT_EQ(reported(), Texts{"a3b0d00"});
}

TEST_F(SerialAnswers, AnalogueAnswersAreAveraged) {
    connect();
    insertCard(15, card_kind::kAnalogueInput);
    for (int i = 0; i < 6; ++i) exchange("08 21 0F 80 00 00 00 00 10");
    EXPECT_EQ(reported(), Texts{});
    exchange("08 21 0F FF FF FF FF FF FF");
    EXPECT_EQ(reported(), (Texts{"aFb0d80", "aFb5d10"}));
}

class AddressAbove15 : public SerialAnswers, public testing::WithParamInterface<const char*> {};

TEST_P(AddressAbove15, IsIgnored) {
    connect();
    for (PERIFCARD& card : cards_) {
        card.kindCode = card_kind::kDigitalInput;
        card.changed[0] = 1;
    }
    exchange("05 51 " + std::string(GetParam()) + " 01 02 03");
    exchange("04 21 " + std::string(GetParam()) + " 40 40");
    EXPECT_EQ(reported(), Texts{});
    for (std::size_t i = 0; i < cards_.size(); ++i) {
        EXPECT_EQ(cards_[i].pioAnswer(0), 0) << i;
        EXPECT_EQ(cards_[i].values[0], 0) << i;
        EXPECT_EQ(cards_[i].changed[0], 1) << i;
    }
    EXPECT_TRUE(linkReady());
}

INSTANTIATE_TEST_SUITE_P(SerialAnswers, AddressAbove15,
                         testing::Values("10", "11", "7F", "80", "81", "F0", "FF"));

}  // namespace
