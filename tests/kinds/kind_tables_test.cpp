#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <string>

#include "apps/zolt-sim/cards/card_kinds.h"
#include "bus/card_kinds.h"

namespace {

/// The daemon's row for a code, or nullptr.
const CardKind* daemonKind(std::uint8_t code) {
    const auto kinds = cardKinds();
    const auto row = std::find_if(kinds.begin(), kinds.end(), [code](const CardKind& kind) {
        return static_cast<std::uint8_t>(kind.code) == code;
    });
    return row == kinds.end() ? nullptr : &*row;
}

TEST(KindTables, OfTheSimulatorAndTheDaemonHaveTheSameCodes) {
    for (const zolt_sim::CardKind& kind : zolt_sim::cardKinds()) {
        EXPECT_NE(daemonKind(kind.code), nullptr)
            << "src/bus/card_kinds.cpp lacks the simulator's " << kind.name;
    }
    for (const CardKind& kind : cardKinds()) {
        if (kind.code != card_kind::kEmpty) {
            EXPECT_NE(zolt_sim::findKind(static_cast<std::uint8_t>(kind.code)), nullptr)
                << "apps/zolt-sim/cards/card_kinds.cpp lacks the daemon's " << kind.name;
        }
    }
}

TEST(KindTables, OfTheSimulatorAndTheDaemonAgreeOnTheData) {
    for (const zolt_sim::CardKind& kind : zolt_sim::cardKinds()) {
        SCOPED_TRACE(kind.name);
        const CardKind* daemon = daemonKind(kind.code);
        if (daemon == nullptr) continue;
        const bool polled = kind.inputs != zolt_sim::InputDevice::kNone;
        EXPECT_EQ(daemon->cardClass == card_class::kInput, polled);
        EXPECT_EQ(polled ? static_cast<std::size_t>(daemon->dataLength) : daemon->outputValues,
                  kind.dataBytes);
        if (daemon->presetValues > 0) {
            EXPECT_EQ(daemon->preset, kind.preset);
        }
    }
}

}  // namespace
