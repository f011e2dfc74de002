#include <algorithm>
#include <array>
#include <random>

#include "tests/faults/fault_test.h"
#include "tests/support/files.h"
#include "tests/support/process/private_view.h"

namespace {

/// Answers to other requests: to a discovery, to a configuration command and to a poll of
/// another card, the refusal of a card, and an answer of a class that the daemon drops.
constexpr std::array kOtherAnswers{
    "31 05 00 00 04 00 03 00 00 08 0A 06 00 00 00 09 07",
    "51 03 40 00 00 00 00 00 00 00 00 00 00 00 00 00",
    "21 0F 01 02 03 04 05 06",
    "4E 03",
    "12",
};

/// Gives wrong answers, one after the other. After each of them the next output must reach
/// its card.
class BusAnswer : public FaultTest {
  protected:
    void SetUp() override {
        FaultTest::SetUp();
        startServing();
    }

    /// Sets a fault for the next request of this kind, which an output or the polling makes
    /// soon.
    void strike(const std::string& fault, const std::string& requests) {
        bus_->control("fault " + fault + " " + requests + " once");
        ASSERT_TRUE(faultsHaveStruck()) << fault;
    }

    /// Sends an output whose answer is spoiled, and then one that has to arrive.
    void strikeOutput(const std::string& fault, bool forgetsCards = false) {
        bus_->control("fault " + fault + " at 5 for output once");
        sendOutput(0x5A);
        ASSERT_TRUE(outputArrives(0x5A)) << fault;
        if (forgetsCards) expectFullRound();
        sendOutput(0xA5);
        ASSERT_TRUE(outputArrives(0xA5)) << "after " << fault;
    }

    static constexpr const char* kPolls = "at 3 for poll";
    static constexpr unsigned kByteValues = 256;
    static constexpr unsigned kDiscoveryAnswer = 0x31;
};

TEST_F(BusAnswer, EveryLengthByte) {
    for (unsigned value = 0; value < kByteValues; ++value) strikeOutput("length " + hexByte(value));
    expectServesAsBefore();
}

TEST_F(BusAnswer, EveryFirstByte) {
    for (unsigned value = 0; value < kByteValues; ++value) {
        const std::string first = hexByte(value);
        strikeOutput("answer " + first, value == kDiscoveryAnswer);
        strike("answer " + first + " 03 FF FF", kPolls);
        // As the answer to a discovery, it leaves only the cards that it names.
        if (value == kDiscoveryAnswer) expectFullRound();
    }
    expectServesAsBefore();
}

TEST_F(BusAnswer, EveryAddress) {
    for (unsigned value = 0; value < kByteValues; ++value) {
        const std::string address = hexByte(value);
        strike("address " + address, kPolls);
        strike("answer 21 " + address + " 01 02 03 04 05 06", kPolls);
        strikeOutput("answer 51 " + address + " 40 3F");
    }
    expectServesAsBefore();
}

TEST_F(BusAnswer, NoiseBeforeAfterAndInsideIt) {
    // Every run has the same noise, so that a failure can be repeated.
    constexpr unsigned kSeed = 1;
    std::mt19937 random(kSeed);
    const std::array<std::string, 4> answer{"03", "21", "03", "00"};
    for (int round = 0; round < 60; ++round) {
        std::string noise;
        for (auto count = 1 + random() % 40; count > 0; --count)
            noise += " " + hexByte(static_cast<unsigned>(random()));
        // The noise comes before byte `place` of the answer; place 5 is after the answer.
        const auto place = static_cast<std::size_t>(round) % 6;
        std::string bytes;
        for (std::size_t i = 0; i < answer.size(); ++i) {
            if (i == place) bytes += noise;
            bytes += " " + answer[i];
        }
        bytes += " 00";
        if (place > answer.size()) bytes += noise;
        strike("raw" + bytes, kPolls);
        strikeOutput("noise" + noise);
    }
    expectServesAsBefore();
}

TEST_F(BusAnswer, SomethingElseThanWasAsked) {
    for (const std::string answer : kOtherAnswers) {
        for (const std::string requests : {"at 3 for poll", "at F for poll", "at 8 for poll"}) {
            strike("answer " + answer, requests);
        }
        strikeOutput("answer " + answer);
        // A configuration command and a discovery still have to get some reply.
        bus_->control("fault answer " + answer + " for config once");
        EXPECT_NE(answered("GETANMASK:F", ">"), "");
        bus_->control("fault answer " + answer + " for discovery once");
        EXPECT_NE(answered("FORCEDISCOVER", "DTI:0xF:"), "");
        expectFullRound();
        // The fault also hits the hardware check if the link has to be found again.
        bus_->control("fault answer " + answer + " for check once");
        strikeOutput("silence");
        bus_->control("faults clear");
    }
    expectServesAsBefore();
}

TEST_F(BusAnswer, SilenceOfOneCardAndOfAll) {
    for (const std::string requests : {"at 3 for poll", "at F for poll", "for poll", ""}) {
        bus_->control("fault silence " + requests + " 3 times");
        ASSERT_TRUE(faultsHaveStruck()) << requests;
        sendOutput(0x11);
        ASSERT_TRUE(outputArrives(0x11)) << requests;
    }
    // The link is lost and not found again at once.
    bus_->control("fault silence for check 2 times");
    strikeOutput("silence");
    ASSERT_TRUE(faultsHaveStruck());
    // No card is found either as long as the discovery is not answered.
    bus_->control("fault silence for discovery once");
    EXPECT_NE(answered("FORCEDISCOVER", "DTI:0xF:EMPTY"), "");
    expectServesAsBefore();
}

TEST_F(BusAnswer, LateAroundTheLimit) {
    // The daemon waits for a number of attempts to read. This finds out how long that takes
    // now, and then answers shortly before and after that time.
    bus_->readNewTrace();
    const long lost = timesLogged("[INF] comm timeout /dev/ttyUSB0");
    unsigned early = 1;
    unsigned late = 1;
    for (; late < 20000; late *= 2) {
        bus_->control("fault delay " + std::to_string(late) + " at 5 for output once");
        sendOutput(0x33);
        ASSERT_TRUE(outputArrives(0x33));
        sendOutput(0x44);
        ASSERT_TRUE(outputArrives(0x44));
        if (timesLogged("[INF] comm timeout /dev/ttyUSB0") > lost) break;
        early = late;
    }
    ASSERT_LT(late, 20000U) << "the daemon never gives up";
    RecordProperty("in_time_milliseconds", static_cast<int>(early));
    RecordProperty("too_late_milliseconds", static_cast<int>(late));
    constexpr unsigned kSteps = 24;
    for (unsigned step = 0; step <= kSteps; ++step) {
        const unsigned delay = early + (late - early) * step / kSteps;
        strikeOutput("delay " + std::to_string(delay));
        strike("delay " + std::to_string(delay), kPolls);
    }
    expectServesAsBefore();
}

}  // namespace
