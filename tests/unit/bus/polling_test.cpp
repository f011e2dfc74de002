#include "bus/polling.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <string>

#include "bus/card_kinds.h"
#include "tests/support/text/bytes.h"

namespace {

class Polling : public testing::Test {
  protected:
    void become(char kind) { setUpCard(card_, 3, kind); }

    bool take(const std::string& hex) {
        const std::string text = bytes(hex);
        std::array<std::uint8_t, PERIFCARD::kAnalogueChannels> data{};
        std::copy_n(text.begin(), std::min(text.size(), data.size()), data.begin());
        return takePollData(card_, data);
    }

    /// The reports of one poll answer.
    std::vector<std::string> reportsOf(const std::string& hex) {
        return take(hex) ? changeReports(card_, 3) : std::vector<std::string>{};
    }

    /// The reports of the seventh answer after six answers that hold `hex`.
    std::vector<std::string> averageOf(const std::string& hex) {
        for (int i = 0; i < 6; ++i) EXPECT_FALSE(take(hex));
        return reportsOf("00 00 00 00 00 00");
    }

    using Reports = std::vector<std::string>;
    PERIFCARD card_;
};

TEST_F(Polling, ReportTextIsUpperCaseHexadecimal) {
    EXPECT_EQ(inputReport(3, 0, 0x40), "a3b0d40");
    EXPECT_EQ(inputReport(15, 15, 0xAF), "aFbFdAF");
    EXPECT_EQ(inputReport(0, 0, 0), "a0b0d00");
    EXPECT_EQ(inputReport(10, 7, 0x0B), "aAb7d0B");
}

TEST_F(Polling, DigitalInputReportsBothBytesInOrder) {
    become(card_kind::kDigitalInput);
    EXPECT_EQ(reportsOf("40 FF"), (Reports{"a3b0d40", "a3b1dFF"}));
    EXPECT_EQ(card_.values[0], 0x40);
    EXPECT_EQ(card_.values[1], 0xFF);
}

TEST_F(Polling, AnUnchangedAnswerReportsNothing) {
    become(card_kind::kDigitalInput);
    reportsOf("40 01");
    EXPECT_EQ(reportsOf("40 01"), Reports{});
}

TEST_F(Polling, OnlyTheChangedByteIsReported) {
    become(card_kind::kDigitalInput);
    reportsOf("40 01");
    EXPECT_EQ(reportsOf("40 02"), Reports{"a3b1d02"});
    EXPECT_EQ(reportsOf("41 02"), Reports{"a3b0d41"});
}

TEST_F(Polling, DigitalInputLooksAtTwoBytes) {
    become(card_kind::kDigitalInput);
    EXPECT_EQ(reportsOf("00 00 FF FF FF FF"), Reports{});
    EXPECT_EQ(card_.values[2], 0);
}

TEST_F(Polling, KeyMatrixLooksAtOneByte) {
    become(card_kind::kKeyMatrix);
    EXPECT_EQ(reportsOf("8A FF FF"), Reports{"a3b0d8A"});
    EXPECT_EQ(card_.values[1], 0);
}

TEST_F(Polling, AStoredOutputValueOfAnInputCardIsReportedAsADifference) {
    become(card_kind::kDigitalInput);
    card_.values[1] = 0x55;
    EXPECT_EQ(reportsOf("00 00"), Reports{"a3b1d00"});
}

TEST_F(Polling, OtherKindsIgnoreTheAnswerButLoseTheirFlags) {
    for (int kind = 0; kind < 256; ++kind) {
        if (kind == card_kind::kDigitalInput || kind == card_kind::kKeyMatrix ||
            kind == card_kind::kAnalogueInput) {
            continue;
        }
        PERIFCARD card;
        card.kindCode = static_cast<char>(kind);
        for (auto& flag : card.changed) flag = 1;
        const std::array<std::uint8_t, 6> data{1, 2, 3, 4, 5, 6};
        EXPECT_FALSE(takePollData(card, data)) << kind;
        EXPECT_EQ(card.values[0], 0) << kind;
        EXPECT_TRUE(changeReports(card, 3).empty()) << kind;
    }
}

TEST_F(Polling, FlagsOfTheLastAnswerAreClearedByAnUnchangedOne) {
    become(card_kind::kDigitalInput);
    take("01 01");
    take("01 01");
    EXPECT_EQ(changeReports(card_, 3), Reports{});
}

TEST_F(Polling, FlagsStayUntilTheNextPollAnswer) {
    become(card_kind::kDigitalInput);
    take("00 07");
    EXPECT_EQ(changeReports(card_, 3), Reports{"a3b1d07"});
    EXPECT_EQ(changeReports(card_, 3), Reports{"a3b1d07"});
}

TEST_F(Polling, ReportsCoverAllSixteenBlocks) {
    for (std::size_t i = 0; i < PERIFCARD::kBlocks; ++i) {
        card_.changed[i] = 1;
        card_.values[i] = static_cast<std::uint8_t>(i * 16);
    }
    const Reports reports = changeReports(card_, 14);
    ASSERT_EQ(reports.size(), 16U);
    EXPECT_EQ(reports.front(), "aEb0d00");
    EXPECT_EQ(reports[9], "aEb9d90");
    EXPECT_EQ(reports.back(), "aEbFdF0");
}

TEST_F(Polling, AnalogueReportsTheAverageOfSixAtTheSeventhAnswer) {
    become(card_kind::kAnalogueInput);
    EXPECT_EQ(averageOf("06 0C 00 FF 80 01"),
              (Reports{"a3b0d06", "a3b1d0C", "a3b3dFF", "a3b4d80", "a3b5d01"}));
}

TEST_F(Polling, AnalogueThrowsTheSeventhAnswersDataAway) {
    become(card_kind::kAnalogueInput);
    for (int i = 0; i < 6; ++i) EXPECT_FALSE(take("0A"));
    EXPECT_EQ(reportsOf("FF FF FF FF FF FF"), Reports{"a3b0d0A"});
    EXPECT_EQ(card_.sampleCount, 0);
    for (const auto& sum : card_.analogueSums) EXPECT_EQ(sum, 0);
}

TEST_F(Polling, AnalogueReportsAtMostOncePerSevenAnswers) {
    become(card_kind::kAnalogueInput);
    int reporting = 0;
    for (int answer = 1; answer <= 70; ++answer) {
        // Another value in each round of seven.
        const auto value = static_cast<char>(1 + (answer - 1) / 7);
        if (take(hexText(std::string(6, value)))) {
            EXPECT_EQ(answer % 7, 0);
            ++reporting;
        }
    }
    EXPECT_EQ(reporting, 10);
}

TEST_F(Polling, AnalogueReportsOnlyChannelsWhoseAverageChanged) {
    become(card_kind::kAnalogueInput);
    averageOf("10 20 30 40 50 60");
    EXPECT_EQ(averageOf("10 20 31 40 50 60"), Reports{"a3b2d31"});
    EXPECT_EQ(averageOf("10 20 31 40 50 60"), Reports{});
}

TEST_F(Polling, AnalogueAverageIsRoundedDown) {
    become(card_kind::kAnalogueInput);
    for (int i = 0; i < 5; ++i) take("FF");
    take("FE");
    EXPECT_EQ(reportsOf("00"), Reports{"a3b0dFE"});
}

TEST_F(Polling, ASmallChangeWithinTheRoundingIsNotReported) {
    become(card_kind::kAnalogueInput);
    averageOf("10");
    for (int i = 0; i < 5; ++i) take("10");
    take("15");
    EXPECT_EQ(reportsOf("00"), Reports{});
}

TEST_F(Polling, AClearingInMidCountMakesOneReadingTooLow) {
    become(card_kind::kAnalogueInput);
    for (int i = 0; i < 4; ++i) take("60");
    card_.clearPerifCard();
    become(card_kind::kAnalogueInput);
    EXPECT_EQ(card_.sampleCount, 4);
    take("60");
    take("60");
    EXPECT_EQ(reportsOf("60"), Reports{"a3b0d20"}) << "two samples, divided by six";
    EXPECT_EQ(averageOf("60"), Reports{"a3b0d60"});
}

TEST_F(Polling, TheAverageIsCutToItsLowByte) {
    become(card_kind::kAnalogueInput);
    card_.sampleCount = 6;
    card_.analogueSums[0] = 6 * 0x123;
    EXPECT_EQ(reportsOf("00"), Reports{"a3b0d23"});
}

TEST_F(Polling, TheRecordsKindDecidesAndNotTheAnswersLength) {
    become(card_kind::kKeyMatrix);
    EXPECT_EQ(reportsOf("00 01 02 03 04 05"), Reports{});
    become(card_kind::kDigitalInput);
    EXPECT_EQ(reportsOf("00 01 02 03 04 05"), Reports{"a3b1d01"});
}

}  // namespace
