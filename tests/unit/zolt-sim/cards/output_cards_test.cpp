#include "apps/zolt-sim/cards/output_cards.h"

#include <gtest/gtest.h>

namespace zolt_sim {
namespace {

constexpr std::uint8_t kSet = 0x01;
constexpr std::uint8_t kGet = 0x40;

std::optional<std::uint8_t> get(Card& card, std::uint8_t number) {
    const auto result = card.configure({kGet, number, std::nullopt});
    return result ? std::optional(result->value) : std::nullopt;
}

bool command(Card& card, std::uint8_t number) {
    return card.configure({kSet, number, std::nullopt}).has_value();
}

TEST(OutputCard, TakesItsWholeStateAtOnce) {
    OutputCard card({0xFF, 0xFF});
    EXPECT_EQ(card.output({0xFF, 0xFB}), "FF FB");
    EXPECT_EQ(card.summary(), "FF FB");
    EXPECT_FALSE(card.output({0x00}));
    EXPECT_FALSE(card.output({0x00, 0x00, 0x00}));
    EXPECT_FALSE(card.output({}));
    EXPECT_EQ(card.summary(), "FF FB");
}

TEST(OutputCard, RebootsIntoItsPreset) {
    OutputCard card({0xFF, 0xFF});
    card.output({0x00, 0x01});
    EXPECT_EQ(card.configure({kSet, 0xAB, std::nullopt})->change, "rebooted, FF FF");
    EXPECT_EQ(card.summary(), "FF FF");
}

TEST(ServoCard, KeepsEndsByChannelAndEnd) {
    ServoCard card(Bytes(6, 0x80));
    EXPECT_EQ(get(card, 0x21), 0x00);
    EXPECT_EQ(get(card, 0x2C), 0xFF);
    const auto result = card.configure({kSet, 0xD2, 0x80});
    ASSERT_TRUE(result);
    EXPECT_EQ(result->value, 0x80);
    EXPECT_EQ(result->change, "end B of channel 2 80");
    EXPECT_EQ(card.configure({kSet, 0xC5, 0x11})->change, "end A of channel 5 11");
    EXPECT_EQ(get(card, 0x29), 0x80);
    EXPECT_EQ(get(card, 0x26), 0x11);
    EXPECT_EQ(card.details(),
              (std::vector<std::string>{"stored positions 80 80 80 80 80 80",
                                        "ends A 00 00 00 00 00 11", "ends B FF FF 80 FF FF FF"}));
}

TEST(ServoCard, KeepsEndsOverAReboot) {
    ServoCard card(Bytes(6, 0x80));
    card.configure({kSet, 0xC0, 0x12});
    EXPECT_TRUE(command(card, 0xAB));
    EXPECT_EQ(get(card, 0x21), 0x12);
}

TEST(ServoCard, StoresPositionsAndGoesBackToThem) {
    ServoCard card(Bytes(6, 0x80));
    card.output({1, 2, 3, 4, 5, 6});
    EXPECT_EQ(card.configure({kSet, 0x74, std::nullopt})->change,
              "positions 01 02 03 04 05 06 stored");
    card.output({9, 9, 9, 9, 9, 9});
    EXPECT_EQ(card.configure({kSet, 0x3F, std::nullopt})->change,
              "moved to stored positions 01 02 03 04 05 06");
    EXPECT_EQ(card.summary(), "01 02 03 04 05 06");
    card.output({9, 9, 9, 9, 9, 9});
    EXPECT_TRUE(command(card, 0xAB));
    EXPECT_EQ(card.summary(), "01 02 03 04 05 06");
}

TEST(ServoCard, RefusesOtherRegistersAndShapes) {
    ServoCard card(Bytes(6, 0x80));
    EXPECT_FALSE(card.configure({kSet, 0xC6, 0x00}));
    EXPECT_FALSE(card.configure({kSet, 0xD6, 0x00}));
    EXPECT_FALSE(card.configure({kSet, 0xC0, std::nullopt}));
    EXPECT_FALSE(card.configure({kSet, 0x74, 0x00}));
    EXPECT_FALSE(card.configure({kGet, 0x20, std::nullopt}));
    EXPECT_FALSE(card.configure({kGet, 0x2D, std::nullopt}));
    EXPECT_FALSE(card.configure({kGet, 0x21, 0x00}));
    EXPECT_FALSE(card.configure({kGet, 0x74, std::nullopt}));
}

TEST(MotorCard, KeepsSilentRangesUntilTheRebootUnlessStored) {
    MotorCard card(Bytes(4, 0x00));
    const auto result = card.configure({kSet, 0xC2, 0x10});
    ASSERT_TRUE(result);
    EXPECT_EQ(result->value, 0x10);
    EXPECT_EQ(result->change, "silent range of channel 2 10");
    EXPECT_EQ(get(card, 0x03), 0x10);
    EXPECT_TRUE(command(card, 0xAB));
    EXPECT_EQ(get(card, 0x03), 0x00);
    card.configure({kSet, 0xC0, 0x20});
    EXPECT_EQ(card.configure({kSet, 0xCD, std::nullopt})->change, "silent ranges 20 00 00 stored");
    card.configure({kSet, 0xC0, 0x01});
    EXPECT_EQ(card.details(), std::vector<std::string>{"silent ranges 01 00 00, stored 20 00 00"});
    EXPECT_TRUE(command(card, 0xAB));
    EXPECT_EQ(get(card, 0x01), 0x20);
}

TEST(MotorCard, IsAtRestAfterAReboot) {
    MotorCard card(Bytes(4, 0x00));
    EXPECT_EQ(card.output({0x10, 0x20, 0x30, 0x01}), "10 20 30 01");
    EXPECT_TRUE(command(card, 0xAB));
    EXPECT_EQ(card.summary(), "00 00 00 00");
}

TEST(MotorCard, RefusesOtherRegistersAndShapes) {
    MotorCard card(Bytes(4, 0x00));
    EXPECT_FALSE(card.configure({kSet, 0xC3, 0x00}));
    EXPECT_FALSE(card.configure({kSet, 0xCD, 0x00}));
    EXPECT_FALSE(card.configure({kSet, 0xC0, std::nullopt}));
    EXPECT_FALSE(card.configure({kGet, 0x00, std::nullopt}));
    EXPECT_FALSE(card.configure({kGet, 0x04, std::nullopt}));
    EXPECT_FALSE(card.configure({kGet, 0x01, 0x00}));
}

}  // namespace
}  // namespace zolt_sim
