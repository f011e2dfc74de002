#include "bus/card_kinds.h"

#include <gtest/gtest.h>

#include <vector>

#include "tests/support/text/bytes.h"

namespace {

struct Kind {
    int code;
    const char* name;
    int cardClass;
    int dataLength;
    const char* firstValues;
    const char* pollFrame;
};

void PrintTo(const Kind& kind, std::ostream* out) {
    *out << kind.name;
}

std::string valuesOf(const PERIFCARD& card) {
    std::string values;
    for (const auto& value : card.values) values.push_back(static_cast<char>(value.load()));
    return hexText(values);
}

std::string padded(std::string firstValues) {
    while (firstValues.size() < PERIFCARD::kBlocks * 3 - 1) {
        firstValues += firstValues.empty() ? "00" : " 00";
    }
    return firstValues;
}

class KnownKind : public testing::TestWithParam<Kind> {};

TEST_P(KnownKind, SetsUpTheRecordOfACard) {
    const Kind& kind = GetParam();
    PERIFCARD card;
    setUpCard(card, 13, static_cast<char>(kind.code));
    EXPECT_EQ(card.kindCode, kind.code);
    EXPECT_EQ(card.address, 13);
    EXPECT_STREQ(card.kindName, kind.name);
    EXPECT_EQ(static_cast<int>(card.cardClass.load()), kind.cardClass);
    EXPECT_EQ(card.dataLength, kind.dataLength);
    EXPECT_EQ(valuesOf(card), padded(kind.firstValues));
    EXPECT_EQ(hexText(card.pollFrame()), kind.pollFrame);
    EXPECT_EQ(card.pollingOn, kind.cardClass == 1);
}

INSTANTIATE_TEST_SUITE_P(CardKinds, KnownKind,
                         testing::Values(Kind{0, "EMPTY", 3, 0, "", ""},
                                         Kind{3, "16 channel DIGITAL OUTPUT", 0, 2, "FF FF", ""},
                                         Kind{4, "16 channel DIGITAL INPUT", 1, 2, "", "20 0D 02"},
                                         Kind{5, "6 channel RC SERVO CONTROLLER", 0, 6,
                                              "80 80 80 80 80 80", ""},
                                         Kind{6, "3 channel DC MOTOR CONTROLLER", 0, 6, "", ""},
                                         Kind{7, "6 channel ANALOGUE INPUT", 1, 6, "", "20 0D 06"},
                                         Kind{8, "KEYMX and ROTE CONTROLLER", 1, 1, "", "20 0D 01"},
                                         Kind{9, "ALPHANUMERIC LCD CONTROLLER", 0, 21, "", ""},
                                         Kind{10, "IR REMOTE CONTROLLER", 0, 1, "", ""}));

TEST(CardKinds, HaveACaseEachAmongTheTestsOfKnownKinds) {
    std::string codes;
    for (const CardKind& kind : cardKinds()) codes.push_back(kind.code);
    EXPECT_EQ(hexText(codes), "00 03 04 05 06 07 08 09 0A");
}

TEST(CardKinds, EveryOtherCodeIsUnidentifiedAndKept) {
    for (int code = 1; code < 256; ++code) {
        if (code >= 3 && code <= 10) continue;
        PERIFCARD card;
        setUpCard(card, 5, static_cast<char>(code));
        EXPECT_STREQ(card.kindName, "UNIDENTIFIED") << code;
        EXPECT_EQ(card.cardClass, CardClass::kNone) << code;
        EXPECT_EQ(card.dataLength, 0) << code;
        EXPECT_EQ(static_cast<unsigned char>(card.kindCode.load()), code);
        EXPECT_FALSE(card.pollingOn) << code;
        EXPECT_TRUE(card.pollFrame().empty()) << code;
    }
}

TEST(CardKinds, SecondDiscoveryWithoutClearingDoublesThePollFrame) {
    PERIFCARD card;
    setUpCard(card, 3, card_kind::kDigitalInput);
    setUpCard(card, 3, card_kind::kDigitalInput);
    EXPECT_EQ(hexText(card.pollFrame()), "20 03 02 20 03 02");
}

TEST(CardKinds, ClearingBetweenDiscoveriesKeepsThePollFrameSingle) {
    PERIFCARD card;
    setUpCard(card, 3, card_kind::kDigitalInput);
    card.clearPerifCard();
    setUpCard(card, 3, card_kind::kDigitalInput);
    EXPECT_EQ(hexText(card.pollFrame()), "20 03 02");
}

TEST(CardKinds, DiscoveryKeepsWhatTheRecordHolds) {
    PERIFCARD card;
    card.values[0] = 0x12;
    card.values[7] = 0x34;
    card.changed[1] = 1;
    card.analogueSums[2] = 99;
    card.sampleCount = 3;
    card.pollingOn = false;
    setUpCard(card, 6, card_kind::kAnalogueInput);
    EXPECT_EQ(card.values[0], 0x12);
    EXPECT_EQ(card.values[7], 0x34);
    EXPECT_EQ(card.changed[1], 1);
    EXPECT_EQ(card.analogueSums[2], 99);
    EXPECT_EQ(card.sampleCount, 3);
    EXPECT_TRUE(card.pollingOn) << "switched off per card, a new discovery switches on again";
}

TEST(CardKinds, PresetsLeaveTheHigherValuesAlone) {
    PERIFCARD card;
    card.values[2] = 0x77;
    card.values[6] = 0x66;
    setUpCard(card, 1, card_kind::kDigitalOutput);
    EXPECT_EQ(valuesOf(card), padded("FF FF 77 00 00 00 66"));
    setUpCard(card, 1, card_kind::kServo);
    EXPECT_EQ(valuesOf(card), padded("80 80 80 80 80 80 66"));
}

TEST(CardKinds, ACardThatIsNoInputAnyMoreKeepsItsSwitchAndFrame) {
    PERIFCARD card;
    setUpCard(card, 2, card_kind::kKeyMatrix);
    setUpCard(card, 2, card_kind::kEmpty);
    EXPECT_EQ(card.cardClass, CardClass::kNone);
    EXPECT_TRUE(card.pollingOn);
    EXPECT_EQ(hexText(card.pollFrame()), "20 02 01");
}

}  // namespace
