#include "apps/zolt-sim/cards/card_kinds.h"

#include <gtest/gtest.h>

#include <utility>

namespace sim {
namespace {

TEST(CardKinds, HaveTheirCodesOnTheWire) {
    const std::pair<const char*, std::uint8_t> kinds[] = {
        {"digital-output", 3}, {"digital-input", 4}, {"servo", 5}, {"motor", 6},
        {"analogue-input", 7}, {"keymatrix", 8},     {"lcd", 9},   {"ir", 10}};
    for (const auto& [name, code] : kinds) {
        EXPECT_EQ(kindCode(name), code) << name;
        EXPECT_EQ(kindName(code), name);
        EXPECT_TRUE(isNamedKind(code)) << name;
    }
    EXPECT_FALSE(kindCode("relay"));
    EXPECT_FALSE(isNamedKind(2));
    EXPECT_EQ(kindName(2), "code 02");
    EXPECT_EQ(kindNames(),
              "digital-output digital-input servo motor analogue-input keymatrix lcd ir");
}

TEST(CardKinds, StartAsAHostPresetsThem) {
    EXPECT_EQ(makeCard(3)->summary(), "FF FF");
    EXPECT_EQ(makeCard(4)->summary(), "00 00");
    EXPECT_EQ(makeCard(5)->summary(), "80 80 80 80 80 80");
    EXPECT_EQ(makeCard(6)->summary(), "00 00 00 00");
    EXPECT_EQ(makeCard(7)->summary(), "00 00 00 00 00 00");
    EXPECT_EQ(makeCard(8)->summary(), "00");
    EXPECT_EQ(makeCard(9)->summary(), "light off, cursor off, blink off");
    EXPECT_EQ(makeCard(10)->summary(), "stream empty");
    EXPECT_EQ(makeCard(0x42)->summary(), "no state");
}

TEST(CardKinds, OnlyThreeArePolled) {
    for (std::uint8_t code = 1; code < 16; ++code) {
        EXPECT_EQ(makeCard(code)->inputs() != nullptr, code == 4 || code == 7 || code == 8)
            << int{code};
    }
}

}  // namespace
}  // namespace sim
