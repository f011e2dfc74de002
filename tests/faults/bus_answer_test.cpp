#include <algorithm>
#include <array>
#include <random>

#include "tests/faults/fault_test.h"
#include "tests/support/files.h"
#include "tests/support/process/private_view.h"

namespace {

/// An answer to a discovery, a configuration command, a poll of another card, the
/// refusal of a card and one of a class that is dropped.
constexpr std::array kOtherAnswers{
    "31 05 00 00 04 00 03 00 00 08 0A 06 00 00 00 09 07",
    "51 03 40 00 00 00 00 00 00 00 00 00 00 00 00 00",
    "21 0F 01 02 03 04 05 06",
    "4E 03",
    "12",
};

/// Wrong answers, one after the other; after each the next output reaches its card.
class BusAnswer : public FaultTest {
  protected:
    void SetUp() override {
        FaultTest::SetUp();
        startServing();
    }

    /// Lets the next request of this kind be struck, which an output or the
    /// polling makes soon.
    void strike(const std::string& fault, const std::string& requests) {
        bus_->control("fault " + fault + " " + requests + " once");
        ASSERT_TRUE(faultsHaveStruck()) << fault;
    }

    /// An output whose answer is spoilt, and one that has to arrive after it.
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
        // Taken for a discovery's answer, it leaves no card but those it names.
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
    // The same noise in every run, so that a failure comes back.
    constexpr unsigned kSeed = 1;
    std::mt19937 random(kSeed);
    const std::array<std::string, 4> answer{"03", "21", "03", "00"};
    for (int round = 0; round < 60; ++round) {
        std::string noise;
        for (auto count = 1 + random() % 40; count > 0; --count)
            noise += " " + hexByte(static_cast<unsigned>(random()));
        // In front of byte 0 it comes before the answer, behind byte 4 after it.
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
        // A configuration command and a discovery have to be answered as well as
        // the bus lets them.
        bus_->control("fault answer " + answer + " for config once");
        EXPECT_NE(answered("GETANMASK:F", ">"), "");
        bus_->control("fault answer " + answer + " for discovery once");
        EXPECT_NE(answered("FORCEDISCOVER", "DTI:0xF:"), "");
        expectFullRound();
        // And the check of the hardware, when the link has to be found again.
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
    // The link goes, and is not found at once.
    bus_->control("fault silence for check 2 times");
    strikeOutput("silence");
    ASSERT_TRUE(faultsHaveStruck());
    // Nor is a card, as long as the discovery is not answered.
    bus_->control("fault silence for discovery once");
    EXPECT_NE(answered("FORCEDISCOVER", "DTI:0xF:EMPTY"), "");
    expectServesAsBefore();
}

TEST_F(BusAnswer, LateAroundTheLimit) {
    // How long the daemon waits is a number of attempts to read: find out what that
    // is here and now, then answer around it.
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
