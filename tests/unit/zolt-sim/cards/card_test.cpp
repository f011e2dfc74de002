#include "apps/zolt-sim/cards/card.h"

#include <gtest/gtest.h>

namespace zolt_sim {
namespace {

TEST(Card, OfAnUnknownCodeUnderstandsOnlyTheReboot) {
    UnknownCard card;
    EXPECT_EQ(card.inputs(), nullptr);
    EXPECT_FALSE(card.output({0x00}));
    EXPECT_FALSE(card.configure({0x40, 0x01, std::nullopt}));
    const auto result = card.configure({0x01, 0xAB, std::nullopt});
    ASSERT_TRUE(result);
    EXPECT_EQ(result->value, 0);
    EXPECT_EQ(result->change, "rebooted, no state");
}

TEST(Card, RebootTakesNoValueAndIsNoReading) {
    UnknownCard card;
    EXPECT_FALSE(card.configure({0x01, 0xAB, 0x00}));
    EXPECT_FALSE(card.configure({0x40, 0xAB, std::nullopt}));
}

}  // namespace
}  // namespace zolt_sim
