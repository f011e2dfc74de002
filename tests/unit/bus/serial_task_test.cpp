#include <gtest/gtest.h>

#include "bus/card_kinds.h"
#include "tests/unit/bus/link_fixture.h"

namespace {

using LinkState = SERIAL_INTERFACE::LinkState;

class SerialTask : public LinkFixture {
  protected:
    void insertCard(std::size_t address, char kind) {
        setUpCard(cards_[address], static_cast<std::uint8_t>(address), kind);
    }
};

TEST_F(SerialTask, TakesOneFrameOfEachQueueInOrder) {
    connect();
    Texts first;
    Texts second;
    for (std::size_t i = 0; i < wire::kQueues; ++i) {
        // The last queue is filled first, so that the order is not that of the filling.
        const std::size_t index = wire::kQueues - 1 - i;
        const std::string number = hexText(std::string(1, static_cast<char>(index)));
        queue(index, "10 " + number + " 01");
        queue(index, "10 " + number + " 02");
        first.insert(first.begin(), "03 10 " + number + " 01");
        second.insert(second.begin(), "03 10 " + number + " 02");
        line_.answer(kAcknowledgement);
        line_.answer(kAcknowledgement);
    }
    EXPECT_TRUE(link_->OnTask());
    EXPECT_EQ(line_.takeWrites(), first);
    EXPECT_TRUE(link_->OnTask());
    EXPECT_EQ(line_.takeWrites(), second);
    EXPECT_TRUE(link_->OnTask());
    EXPECT_EQ(line_.takeWrites(), Texts{});
}

TEST_F(SerialTask, AtFullSpeedALinkRestsBesideFramesThatItCannotSend) {
    // A port that is given and has no controller is not asked again.
    build(line_.path());
    ASSERT_EQ(link_->linkState(), LinkState::kUnderTest);
    goFullSpeed();
    queue(5, "10 05 01");
    const auto begin = std::chrono::steady_clock::now();
    link_->OnTask();
    EXPECT_GE(std::chrono::steady_clock::now() - begin, LoopPause::kLongestRest);
}

TEST_F(SerialTask, AtFullSpeedAFrameEndsTheRest) {
    connect();
    goFullSpeed();
    line_.answer(kAcknowledgement);
    EXPECT_TRUE(restEndsWith([&] { queue(5, "10 05 01"); }));
    EXPECT_EQ(line_.takeWrites(), Texts{"03 10 05 01"});
}

TEST_F(SerialTask, AtFullSpeedPollingThatIsSwitchedOnEndsTheRest) {
    connect();
    insertCard(3, card_kind::kDigitalInput);
    goFullSpeed();
    EXPECT_TRUE(restEndsWith([&] { link_->globalPolling = true; }));
    EXPECT_EQ(takeFrames(link_->commandQueue(3)), Texts{"20 03 02"}) << "in the same cycle";
}

TEST_F(SerialTask, AtFullSpeedPollingThatIsSwitchedOffEndsTheRest) {
    connect(true);
    goFullSpeed();
    EXPECT_TRUE(restEndsWith([&] { link_->globalPolling = false; }));
}

TEST_F(SerialTask, AtFullSpeedACardsSwitchEndsTheRest) {
    connect(true);
    insertCard(3, card_kind::kDigitalInput);
    cards_[3].pollingOn = false;
    goFullSpeed();
    EXPECT_TRUE(restEndsWith([&] { cards_[3].pollingOn = true; }));
    EXPECT_EQ(takeFrames(link_->commandQueue(3)), Texts{"20 03 02"}) << "in the same cycle";
}

TEST_F(SerialTask, AtFullSpeedANewSpeedEndsTheRest) {
    connect();
    goFullSpeed();
    EXPECT_TRUE(restEndsWith([&] { link_->threadDelay = 5000; }));
}

TEST_F(SerialTask, AnEmptyFrameUsesUpItsQueuesTurn) {
    connect();
    link_->commandQueue(5).ToQueue({});
    queue(5, "10 05 01");
    queue(6, "10 06 01");
    line_.answer(kAcknowledgement);
    line_.answer(kAcknowledgement);
    link_->OnTask();
    EXPECT_EQ(line_.takeWrites(), Texts{"03 10 06 01"});
    link_->OnTask();
    EXPECT_EQ(line_.takeWrites(), Texts{"03 10 05 01"});
}

TEST_F(SerialTask, AnAnswerThatBeginsWithTLosesTheLink) {
    connect();
    queue(3, "20 03 02");
    queue(4, "20 04 02");
    line_.answer("03 54 03 FF");
    link_->OnTask();
    EXPECT_EQ(line_.takeWrites(), Texts{"03 20 03 02"});
    EXPECT_EQ(logged(), Texts{timeoutLine()});
    EXPECT_EQ(link_->linkState(), LinkState::kClosed);
}

TEST_F(SerialTask, ATimeoutEndsTheQueuesAndTheRestWaitsForTheLink) {
    connect();
    queue(3, "10 03 01");
    queue(3, "10 03 02");
    queue(9, "10 09 01");
    link_->OnTask();
    EXPECT_EQ(line_.takeWrites(), Texts{"03 10 03 01"});
    EXPECT_EQ(logged(), Texts{timeoutLine()});
    EXPECT_EQ(link_->linkState(), LinkState::kClosed);

    line_.answer(kHardwareAnswer);
    line_.answer(kAcknowledgement);
    line_.answer(kAcknowledgement);
    link_->OnTask();
    EXPECT_EQ(line_.takeWrites(), (Texts{kHardwareRequest, "03 10 03 02", "03 10 09 01"}))
        << "the frame that was lost is not sent again, the others are";
    EXPECT_EQ(pauses_.take(), std::vector<int>{});
}

TEST_F(SerialTask, ATimeoutStillQueuesThePollsOfTheCycle) {
    connect(true);
    insertCard(3, card_kind::kDigitalInput);
    insertCard(5, card_kind::kKeyMatrix);
    link_->OnTask();  // queues the first polls
    link_->OnTask();  // the poll of card 3 meets silence
    EXPECT_EQ(link_->linkState(), LinkState::kClosed);
    EXPECT_EQ(line_.takeWrites(), Texts{"03 20 03 02"});
    EXPECT_EQ(takeFrames(link_->commandQueue(3)), Texts{"20 03 02"});
    EXPECT_EQ(takeFrames(link_->commandQueue(5)), (Texts{"20 05 01", "20 05 01"}))
        << "the card after the failing one gains a frame";
}

TEST_F(SerialTask, ALostLinkKeepsTheCards) {
    connect();
    insertCard(3, card_kind::kDigitalInput);
    cards_[3].values[0] = 0x40;
    queue(3, "20 03 02");
    link_->OnTask();
    ASSERT_FALSE(linkReady());
    EXPECT_EQ(cards_[3].kindCode, card_kind::kDigitalInput);
    EXPECT_EQ(cards_[3].values[0], 0x40);
    EXPECT_TRUE(cards_[3].pollingOn);
}

TEST_F(SerialTask, DiscoversAtEachReturnOfTheLinkAndDoublesPollFrames) {
    const std::string discovery = "11 31 00 00 00 04 00 00 00 00 00 00 00 00 00 00 00 00";
    line_.answer(kHardwareAnswer);
    line_.answer(discovery);
    build(line_.path(), true, true);
    EXPECT_EQ(line_.takeWrites(), (Texts{kHardwareRequest, "01 30"}));
    EXPECT_EQ(pauses_.take(), std::vector<int>{1});
    EXPECT_EQ(hexText(cards_[3].pollFrame()), "20 03 02");

    link_->OnTask();  // the first poll meets silence
    ASSERT_FALSE(linkReady());
    line_.takeWrites();
    line_.answer(kHardwareAnswer);
    line_.answer("04 21 03 00 00");
    line_.answer(discovery);
    link_->OnTask();
    EXPECT_EQ(line_.takeWrites(), (Texts{kHardwareRequest, "03 20 03 02", "01 30"}));
    EXPECT_EQ(hexText(cards_[3].pollFrame()), "20 03 02 20 03 02");
}

TEST_F(SerialTask, WithoutAutomaticDiscoveryNothingIsAsked) {
    connect(true);
    link_->OnTask();
    link_->OnTask();
    EXPECT_EQ(line_.takeWrites(), Texts{});
}

TEST_F(SerialTask, PollsEachSwitchedOnInputCardOncePerCycle) {
    connect(true);
    insertCard(0, card_kind::kServo);
    insertCard(3, card_kind::kDigitalInput);
    insertCard(8, card_kind::kKeyMatrix);
    insertCard(15, card_kind::kAnalogueInput);
    cards_[8].pollingOn = false;
    for (int cycle = 0; cycle < 3; ++cycle) {
        line_.answer("04 21 03 00 00");
        line_.answer("08 21 0F 00 00 00 00 00 00");
    }
    link_->OnTask();
    EXPECT_EQ(line_.takeWrites(), Texts{});
    for (int cycle = 0; cycle < 3; ++cycle) {
        link_->OnTask();
        EXPECT_EQ(line_.takeWrites(), (Texts{"03 20 03 02", "03 20 0F 06"}));
    }
}

TEST_F(SerialTask, WithPollingOffNothingIsPolled) {
    connect(false);
    insertCard(3, card_kind::kDigitalInput);
    link_->OnTask();
    link_->OnTask();
    EXPECT_EQ(line_.takeWrites(), Texts{});
    link_->globalPolling = true;
    line_.answer("04 21 03 40 00");
    link_->OnTask();
    link_->OnTask();
    EXPECT_EQ(line_.takeWrites(), Texts{"03 20 03 02"});
    EXPECT_EQ(reported(), Texts{"a3b0d40"});
}

TEST_F(SerialTask, AfterAPauseOfPollingOnlyDifferencesAreReported) {
    connect();
    insertCard(3, card_kind::kDigitalInput);
    exchange("04 21 03 40 01");
    reported();
    cards_[3].pollingOn = false;
    link_->OnTask();
    cards_[3].pollingOn = true;
    exchange("04 21 03 40 02");
    EXPECT_EQ(reported(), Texts{"a3b1d02"});
}

TEST_F(SerialTask, OnlyInputCardsArePolledWhateverTheirSwitch) {
    connect(true);
    insertCard(3, card_kind::kDigitalOutput);
    cards_[3].pollingOn = true;
    cards_[3].appendToPollFrame(byteList("20 03 02"));
    cards_[4].pollingOn = true;
    link_->OnTask();
    link_->OnTask();
    EXPECT_EQ(line_.takeWrites(), Texts{});
}

TEST_F(SerialTask, AnOutputFrameGoesAheadOfThePollsQueuedAfterIt) {
    connect(true);
    insertCard(3, card_kind::kDigitalInput);
    queue(3, "10 03 01 00");
    line_.answer(kAcknowledgement);
    line_.answer("04 21 03 00 00");
    link_->OnTask();
    link_->OnTask();
    EXPECT_EQ(line_.takeWrites(), (Texts{"04 10 03 01 00", "03 20 03 02"}));
}

TEST_F(SerialTask, ASignalIsLoggedAndClosesThePortUnderTheTask) {
    connect();
    link_->mf_SIGhandler(2);
    EXPECT_EQ(logged(), Texts{"[INF] signal 2 on serial interface"});
    EXPECT_EQ(link_->linkState(), LinkState::kReady) << "the state is the task's own";
    link_->OnTask();
    EXPECT_TRUE(linkReady()) << "nothing queued, nothing noticed";
}

}  // namespace
