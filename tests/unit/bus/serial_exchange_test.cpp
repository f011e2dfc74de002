#include <gtest/gtest.h>

#include "tests/unit/bus/link_fixture.h"

namespace {

/// The effect of an answer shows in the PIO answer of card 3, in the reports, in the log and
/// in the link's state.
class Exchange : public LinkFixture {
  protected:
    void SetUp() override { connect(); }

    static std::string repeated(const std::string& hex, std::size_t times) {
        std::string text;
        for (std::size_t i = 0; i < times; ++i) text += (i == 0 ? "" : " ") + hex;
        return text;
    }
};

TEST_F(Exchange, RequestGoesOutInOneWriteAfterItsLength) {
    queue(3, "20 03 02");
    line_.answer(kAcknowledgement);
    link_->OnTask();
    EXPECT_EQ(line_.takeWrites(), Texts{"03 20 03 02"});
}

TEST_F(Exchange, ZeroBytesOfARequestAreSent) {
    queue(3, "10 03 06 00 00 00 00 00 00");
    line_.answer(kAcknowledgement);
    link_->OnTask();
    EXPECT_EQ(line_.takeWrites(), Texts{"09 10 03 06 00 00 00 00 00 00"});
}

TEST_F(Exchange, AnswerIsCompleteAtItsLengthAndTheRestIsIgnored) {
    exchange("05 51 03 0A 0B 0C 0D 0E 0F");
    EXPECT_EQ(pioAnswer(3), "51 03 0A 0B 0C 00 00 00 00 00 00 00 00 00 00 00");
    EXPECT_EQ(line_.readsSinceWrite(), 1);
}

TEST_F(Exchange, AnswerInPiecesIsPutTogether) {
    queue(3, "20 03 02");
    line_.answerInPieces(
        {{1, bytes("05 51")}, {2, bytes("03")}, {500, bytes("0A 0B")}, {1000, bytes("0C 77")}});
    link_->OnTask();
    EXPECT_EQ(pioAnswer(3), "51 03 0A 0B 0C 00 00 00 00 00 00 00 00 00 00 00");
    EXPECT_EQ(line_.readsSinceWrite(), 1000);
}

TEST_F(Exchange, LengthByteAloneIsNoAnswerYet) {
    queue(3, "20 03 02");
    line_.answerInPieces({{1, bytes("02")}, {2, bytes("51")}, {3, bytes("03")}});
    link_->OnTask();
    EXPECT_EQ(pioAnswer(3).substr(0, 5), "51 03");
}

TEST_F(Exchange, LengthOfZeroOrAbove127IsAnEmptyAnswerAtOnce) {
    for (const char* length : {"00", "80", "85", "FF"}) {
        exchange(std::string(length) + " 51 03 0A 0B 0C");
        EXPECT_EQ(line_.readsSinceWrite(), 1) << length;
        EXPECT_TRUE(linkReady()) << length;
    }
    EXPECT_EQ(cards_[3].pioAnswer(0), 0);
    EXPECT_EQ(logged(), Texts{});
}

TEST_F(Exchange, TheLongestAnswerHas127Bytes) {
    queue(3, "20 03 02");
    // The answer is complete only with its last byte.
    line_.answerInPieces({{1, bytes("7F 51 03 " + repeated("AA", 100))},
                          {2, bytes(repeated("BB", 24))},
                          {3, bytes("CC")}});
    link_->OnTask();
    EXPECT_EQ(line_.readsSinceWrite(), 3);
    EXPECT_TRUE(linkReady());
    EXPECT_EQ(pioAnswer(3), "51 03 " + repeated("AA", 14));
}

TEST_F(Exchange, AnAnswerLongerThanTheBufferIsCut) {
    exchange("7F 51 03 " + repeated("AA", 252));
    EXPECT_EQ(pioAnswer(3), "51 03 " + repeated("AA", 14));
    exchange("05 51 03 01 02 03");
    EXPECT_EQ(pioAnswer(3).substr(0, 14), "51 03 01 02 03");
}

TEST_F(Exchange, PiecesBeyondTheBufferAreCountedOnly) {
    queue(3, "20 03 02");
    line_.answerInPieces(
        {{1, bytes("7F 51 03 " + repeated("AA", 120))}, {2, bytes(repeated("BB", 255))}});
    link_->OnTask();
    EXPECT_TRUE(linkReady());
    EXPECT_EQ(pioAnswer(3).substr(0, 5), "51 03");
}

TEST_F(Exchange, StaleInputIsThrownAwayOnceWithAtMost255Bytes) {
    // 255 stale bytes are dropped; the bytes after them pass for the answer.
    line_.put(repeated("02 4E 4E", 85) + " 03 51 03 AB");
    queue(3, "20 03 02");
    link_->OnTask();
    EXPECT_EQ(pioAnswer(3), "51 03 AB 00 00 00 00 00 00 00 00 00 00 00 00 00");
    EXPECT_EQ(line_.readsSinceWrite(), 1);
}

TEST_F(Exchange, UnreadExcessIsGoneBeforeTheNextRequest) {
    // One read takes 255 bytes; 45 stay on the line.
    exchange("02 51 03 " + repeated("AA", 297));
    EXPECT_EQ(line_.unread(), 45U);
    exchange("03 51 03 0B");
    EXPECT_EQ(pioAnswer(3), "51 03 0B 00 00 00 00 00 00 00 00 00 00 00 00 00");
}

TEST_F(Exchange, AnEmptyRequestSendsNothingButThrowsStaleInputAway) {
    link_->commandQueue(3).ToQueue({});
    line_.put("02 51 03");
    link_->OnTask();
    EXPECT_EQ(line_.takeWrites(), Texts{});
    EXPECT_EQ(line_.unread(), 0U);
    EXPECT_EQ(cards_[3].pioAnswer(0), 0);
    EXPECT_TRUE(linkReady());
}

TEST_F(Exchange, ARequestOfMoreThan254BytesIsCut) {
    queue(3, repeated("20 03 02", 100));
    line_.answer(kAcknowledgement);
    link_->OnTask();
    EXPECT_EQ(line_.takeWrites(), Texts{"FE " + repeated("20 03 02", 84) + " 20 03"});
    EXPECT_TRUE(linkReady());
}

TEST_F(Exchange, ARequestOf254BytesIsWhole) {
    queue(3, repeated("11", 254));
    line_.answer(kAcknowledgement);
    link_->OnTask();
    EXPECT_EQ(line_.takeWrites(), Texts{"FE " + repeated("11", 254)});
}

TEST_F(Exchange, SilenceIsATimeoutAfterAFixedNumberOfReads) {
    queue(3, "20 03 02");
    link_->OnTask();
    EXPECT_EQ(line_.readsSinceWrite(), 150000);
    EXPECT_EQ(logged(), Texts{timeoutLine()});
    EXPECT_FALSE(linkReady());
}

TEST_F(Exchange, DiscoveryIsGivenTwiceTheReads) {
    queue(wire::kSystemQueue, "30");
    link_->OnTask();
    EXPECT_EQ(line_.readsSinceWrite(), 300000);
    EXPECT_EQ(logged(), Texts{timeoutLine()});
}

TEST_F(Exchange, AnAnswerThatCompletesOnTheLastReadIsATimeout) {
    queue(3, "20 03 02");
    line_.answerInPieces({{150000, bytes("03 51 03 AB")}});
    link_->OnTask();
    EXPECT_EQ(logged(), Texts{timeoutLine()});
    EXPECT_EQ(cards_[3].pioAnswer(0), 0);
}

TEST_F(Exchange, AnAnswerThatCompletesOnTheLastReadButOneCounts) {
    queue(3, "20 03 02");
    line_.answerInPieces({{1, bytes("03")}, {149999, bytes("51 03 AB")}});
    link_->OnTask();
    EXPECT_EQ(logged(), Texts{});
    EXPECT_EQ(cards_[3].pioAnswer(2), static_cast<char>(0xAB));
}

TEST_F(Exchange, AnIncompleteAnswerIsATimeout) {
    exchange("05 51 03 0A 0B");
    EXPECT_EQ(logged(), Texts{timeoutLine()});
    EXPECT_EQ(cards_[3].pioAnswer(0), 0);
}

TEST_F(Exchange, ALateAnswerIsStaleForTheNextRequest) {
    exchange("05 51 03 0A 0B");
    line_.put("0C");
    line_.answer(kHardwareAnswer);
    link_->OnTask();
    ASSERT_TRUE(linkReady());
    exchange("03 51 03 77");
    EXPECT_EQ(pioAnswer(3).substr(0, 8), "51 03 77");
}

TEST_F(Exchange, AFailedWriteIsLoggedAndTimesOut) {
    link_->mf_SIGhandler(15);
    queue(3, "20 03 02");
    link_->OnTask();
    EXPECT_EQ(logged(), (Texts{"[INF] signal 15 on serial interface",
                               "[ERR] unable to  write to " + portPath_, timeoutLine()}));
    EXPECT_EQ(line_.takeWrites(), Texts{});
    EXPECT_FALSE(linkReady());
}

}  // namespace
