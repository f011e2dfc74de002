#include "apps/zolt-sim/cards/input_cards.h"

#include <gtest/gtest.h>

namespace zolt_sim {
namespace {

TEST(InputCard, KeepsItsInputsOverAReboot) {
    InputCard card({0x00, 0x00});
    ASSERT_NE(card.inputs(), nullptr);
    *card.inputs() = {0x40, 0x01};
    EXPECT_TRUE(card.configure({0x01, 0xAB, std::nullopt}));
    EXPECT_EQ(card.summary(), "40 01");
}

TEST(InputCard, TakesNoOutput) {
    InputCard card({0x00, 0x00});
    EXPECT_FALSE(card.output({0x00, 0x00}));
}

TEST(AnalogueInputCard, GivesBackTheMaskThatWasSet) {
    AnalogueInputCard card(Bytes(6, 0x00));
    EXPECT_EQ(card.configure({0x40, 0x01, std::nullopt})->value, 0x3F);
    const auto set = card.configure({0x01, 0x01, 0x80});
    ASSERT_TRUE(set);
    EXPECT_EQ(set->value, 0x80);
    EXPECT_EQ(set->change, "mask 80");
    const auto get = card.configure({0x40, 0x01, std::nullopt});
    ASSERT_TRUE(get);
    EXPECT_EQ(get->value, 0x80);
    EXPECT_EQ(get->change, "");
}

TEST(AnalogueInputCard, RebootsIntoTheStoredMask) {
    AnalogueInputCard card(Bytes(6, 0x00));
    card.configure({0x01, 0x01, 0x15});
    card.configure({0x01, 0xAB, std::nullopt});
    EXPECT_EQ(card.configure({0x40, 0x01, std::nullopt})->value, 0x3F);
    card.configure({0x01, 0x01, 0x15});
    EXPECT_EQ(card.configure({0x01, 0x02, std::nullopt})->change, "mask 15 stored");
    card.configure({0x01, 0x01, 0x00});
    EXPECT_EQ(card.details(), std::vector<std::string>{"mask 00, stored 15"});
    card.configure({0x01, 0xAB, std::nullopt});
    EXPECT_EQ(card.configure({0x40, 0x01, std::nullopt})->value, 0x15);
}

TEST(AnalogueInputCard, RefusesOtherRegistersAndShapes) {
    AnalogueInputCard card(Bytes(6, 0x00));
    EXPECT_FALSE(card.configure({0x01, 0x01, std::nullopt}));
    EXPECT_FALSE(card.configure({0x01, 0x02, 0x00}));
    EXPECT_FALSE(card.configure({0x40, 0x02, std::nullopt}));
    EXPECT_FALSE(card.configure({0x40, 0x01, 0x00}));
    EXPECT_FALSE(card.configure({0x02, 0x01, 0x00}));
}

}  // namespace
}  // namespace zolt_sim
