#include "apps/zolt-sim/adapter/faults.h"

#include <gtest/gtest.h>

namespace zolt_sim {
namespace {

const Bytes kPollOf3{0x20, 3, 2};
const Bytes kAnswerOf3{0x21, 3, 0x40, 0x00};
const Bytes kFrameOf3{0x04, 0x21, 3, 0x40, 0x00};

Fault fault(const std::string& text) {
    return parseFault(splitWords(text));
}

/// The output for a poll of card 3 that one fault has struck.
WireOutput strike(const std::string& text) {
    FaultList faults;
    faults.add(fault(text));
    return faults.apply(kPollOf3, kAnswerOf3);
}

TEST(Faults, WithoutAnyTheAnswerIsFramed) {
    FaultList faults;
    const WireOutput output = faults.apply(kPollOf3, kAnswerOf3);
    EXPECT_EQ(output.bytes, kFrameOf3);
    EXPECT_FALSE(output.faulty);
    EXPECT_EQ(output.struckBy, std::nullopt);
    EXPECT_TRUE(faults.apply(kPollOf3, std::nullopt).bytes.empty());
}

TEST(Faults, ChangeTheBytesOnTheWire) {
    EXPECT_EQ(strike("silence").bytes, Bytes{});
    EXPECT_EQ(strike("noise AABB").bytes, (Bytes{0xAA, 0xBB, 0x04, 0x21, 3, 0x40, 0x00}));
    EXPECT_EQ(strike("truncate 2").bytes, (Bytes{0x04, 0x21, 3}));
    EXPECT_EQ(strike("truncate 9").bytes, Bytes{});
    EXPECT_EQ(strike("oversize 2").bytes, (Bytes{0x06, 0x21, 3, 0x40, 0x00, 0xEE, 0xEE}));
    EXPECT_EQ(strike("length 80").bytes, (Bytes{0x80, 0x21, 3, 0x40, 0x00}));
    EXPECT_EQ(strike("address 10").bytes, (Bytes{0x04, 0x21, 0x10, 0x40, 0x00}));
    EXPECT_EQ(strike("class 2").bytes, (Bytes{0x04, 0x12, 3, 0x40, 0x00}));
    EXPECT_EQ(strike("answer 31 00").bytes, (Bytes{0x02, 0x31, 0x00}));
    EXPECT_EQ(strike("raw 05 06").bytes, (Bytes{0x05, 0x06}));
    EXPECT_TRUE(strike("raw 05").faulty);
    EXPECT_EQ(strike("raw 05").struckBy, Fault::Kind::kRaw);
}

TEST(Faults, OversizeStaysWithinWhatALengthByteCounts) {
    const Bytes bytes = strike("oversize 255").bytes;
    EXPECT_EQ(bytes.size(), 256U);
    EXPECT_EQ(bytes.front(), 0xFF);
}

TEST(Faults, DelayLeavesTheAnswerAsItIs) {
    const WireOutput output = strike("delay 30");
    EXPECT_EQ(output.bytes, kFrameOf3);
    EXPECT_EQ(output.delay, std::chrono::milliseconds(30));
    EXPECT_FALSE(output.faulty);
}

TEST(Faults, AddressOfAShortAnswerMakesItLonger) {
    FaultList faults;
    faults.add(fault("address 07"));
    EXPECT_EQ(faults.apply({0x10, 5, 0}, Bytes{0x06}).bytes, (Bytes{0x02, 0x06, 0x07}));
}

TEST(Faults, StrikeAsOftenAsTheirCountSays) {
    FaultList faults;
    faults.add(fault("silence 2 times"));
    EXPECT_TRUE(faults.apply(kPollOf3, kAnswerOf3).bytes.empty());
    EXPECT_EQ(faults.describe(), std::vector<std::string>{"silence once"});
    EXPECT_TRUE(faults.apply(kPollOf3, kAnswerOf3).bytes.empty());
    EXPECT_TRUE(faults.describe().empty());
    EXPECT_EQ(faults.apply(kPollOf3, kAnswerOf3).bytes, kFrameOf3);
    faults.add(fault("silence always"));
    for (int i = 0; i < 5; ++i) {
        EXPECT_TRUE(faults.apply(kPollOf3, kAnswerOf3).bytes.empty());
    }
    faults.clear();
    EXPECT_EQ(faults.apply(kPollOf3, kAnswerOf3).bytes, kFrameOf3);
}

TEST(Faults, StrikeOnlyWhereTheyAreLimitedTo) {
    FaultList faults;
    faults.add(fault("silence at 3 for poll always"));
    EXPECT_EQ(faults.apply({0x20, 4, 2}, Bytes{0x21, 4}).bytes, (Bytes{0x02, 0x21, 4}));
    EXPECT_EQ(faults.apply({0x50, 3, 1, 0xAB}, Bytes{0x51, 3}).bytes, (Bytes{0x02, 0x51, 3}));
    EXPECT_EQ(faults.apply({0x30}, Bytes{0x31}).bytes, (Bytes{0x01, 0x31}));
    EXPECT_TRUE(faults.apply(kPollOf3, kAnswerOf3).bytes.empty());
}

TEST(Faults, StrikeOneAtATimeOldestFirst) {
    FaultList faults;
    faults.add(fault("raw 01"));
    faults.add(fault("raw 02"));
    EXPECT_EQ(faults.apply(kPollOf3, kAnswerOf3).bytes, Bytes{0x01});
    EXPECT_EQ(faults.apply(kPollOf3, kAnswerOf3).bytes, Bytes{0x02});
    EXPECT_EQ(faults.apply(kPollOf3, kAnswerOf3).bytes, kFrameOf3);
}

TEST(Faults, WaitForAnAnswerThatTheyCanSpoil) {
    for (const char* text :
         {"silence", "delay 5", "truncate 1", "oversize 1", "length 00", "address 00"}) {
        FaultList faults;
        faults.add(fault(text));
        EXPECT_TRUE(faults.apply(kPollOf3, std::nullopt).bytes.empty()) << text;
        EXPECT_EQ(faults.describe().size(), 1U) << text;
    }
}

TEST(Faults, MayStrikeWhereTheBusIsSilent) {
    const std::pair<const char*, Bytes> cases[] = {{"noise AA", {0xAA}},
                                                   {"class 1", {0x01, 0x54}},
                                                   {"answer 06", {0x01, 0x06}},
                                                   {"raw 7F", {0x7F}}};
    for (const auto& [text, bytes] : cases) {
        FaultList faults;
        faults.add(fault(text));
        EXPECT_EQ(faults.apply(kPollOf3, std::nullopt).bytes, bytes) << text;
    }
}

}  // namespace
}  // namespace zolt_sim
