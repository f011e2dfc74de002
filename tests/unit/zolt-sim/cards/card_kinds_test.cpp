#include "apps/zolt-sim/cards/card_kinds.h"

#include <gtest/gtest.h>

#include <set>
#include <utility>
#include <vector>

namespace zolt_sim {
namespace {

TEST(CardKinds, HaveTheirCodesOnTheWire) {
    std::vector<std::pair<std::string_view, int>> kinds;
    for (const CardKind& kind : cardKinds()) {
        kinds.emplace_back(kind.name, kind.code);
    }
    EXPECT_EQ(kinds, (std::vector<std::pair<std::string_view, int>>{{"digital-output", 3},
                                                                    {"digital-input", 4},
                                                                    {"servo", 5},
                                                                    {"motor", 6},
                                                                    {"analogue-input", 7},
                                                                    {"keymatrix", 8},
                                                                    {"lcd", 9},
                                                                    {"ir", 10}}));
}

TEST(CardKinds, AreFoundByCodeAndByName) {
    for (const CardKind& kind : cardKinds()) {
        EXPECT_EQ(findKind(kind.code), &kind);
        EXPECT_EQ(findKind(kind.name), &kind);
        EXPECT_EQ(kindName(kind.code), kind.name);
    }
    EXPECT_EQ(findKind("relay"), nullptr);
    EXPECT_EQ(findKind(2), nullptr);
    EXPECT_EQ(kindName(2), "code 02");
}

TEST(CardKinds, AreListedByName) {
    EXPECT_EQ(kindNames(" "),
              "digital-output digital-input servo motor analogue-input keymatrix lcd ir");
    EXPECT_EQ(kindNamesWith(InputDevice::kSwitches), "digital-input");
    EXPECT_EQ(kindNamesWith(InputDevice::kNone), "digital-output or servo or motor or lcd or ir");
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

TEST(CardKinds, ArePolledIfTheyHaveInputs) {
    std::set<std::string_view> polled;
    for (const CardKind& kind : cardKinds()) {
        const auto card = makeCard(kind.code);
        const Bytes* inputs = card->inputs();
        EXPECT_EQ(inputs != nullptr, kind.inputs != InputDevice::kNone) << kind.name;
        if (inputs != nullptr) {
            EXPECT_EQ(inputs->size(), kind.dataBytes) << kind.name;
            polled.insert(kind.name);
        }
    }
    EXPECT_EQ(polled, (std::set<std::string_view>{"analogue-input", "digital-input", "keymatrix"}));
    EXPECT_EQ(makeCard(0x42)->inputs(), nullptr);
}

TEST(CardKinds, TakeAsManyOutputBytesAsTheTableSays) {
    for (const CardKind& kind : cardKinds()) {
        if (kind.inputs != InputDevice::kNone || kind.dataBytes == 0) {
            continue;
        }
        const auto card = makeCard(kind.code);
        EXPECT_TRUE(card->output(Bytes(kind.dataBytes, 0x11))) << kind.name;
        EXPECT_FALSE(card->output(Bytes(kind.dataBytes + 1, 0x11))) << kind.name;
    }
}

}  // namespace
}  // namespace zolt_sim
