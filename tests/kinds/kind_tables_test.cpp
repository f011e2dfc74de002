#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <string>

#include "apps/zolt-sim/cards/card_kinds.h"
#include "bus/card_kinds.h"
#include "lib/ports/card_kind.h"

namespace {

/// The daemon's row for a code, or nullptr.
const CardKind* daemonKind(std::uint8_t code) {
    const auto kinds = cardKinds();
    const auto row = std::find_if(kinds.begin(), kinds.end(), [code](const CardKind& kind) {
        return static_cast<std::uint8_t>(kind.code) == code;
    });
    return row == kinds.end() ? nullptr : &*row;
}

/// The clients' row for a display name, or nullptr.
const zolt_ports::CardKindRow* clientKind(std::string_view name) {
    const auto kinds = zolt_ports::cardKinds();
    const auto row =
        std::find_if(kinds.begin(), kinds.end(),
                     [name](const zolt_ports::CardKindRow& kind) { return kind.name == name; });
    return row == kinds.end() ? nullptr : &*row;
}

/// The clients' word for what a card of the daemon takes on IO.
std::optional<zolt_ports::OutputCommand> outputCommand(const CardKind& kind) {
    switch (kind.stream) {
        case CardStream::kLcd:
            return zolt_ports::OutputCommand::kLcd;
        case CardStream::kInfrared:
            return zolt_ports::OutputCommand::kInfrared;
        case CardStream::kNone:
            break;
    }
    return kind.outputValues > 0 ? std::optional(zolt_ports::OutputCommand::kBlock) : std::nullopt;
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
        EXPECT_EQ(daemon->cardClass == CardClass::kInput, polled);
        EXPECT_EQ(polled ? static_cast<std::size_t>(daemon->dataLength) : daemon->outputValues,
                  kind.dataBytes);
        if (daemon->presetValues > 0) {
            EXPECT_EQ(daemon->preset, kind.preset);
        }
    }
}

TEST(KindTables, OfTheDaemonAndItsClientsHaveTheSameNames) {
    for (const CardKind& kind : cardKinds()) {
        EXPECT_NE(clientKind(kind.name), nullptr)
            << "lib/ports/card_kind.cpp lacks the daemon's " << kind.name;
    }
    for (const zolt_ports::CardKindRow& kind : zolt_ports::cardKinds()) {
        const auto kinds = cardKinds();
        const bool known = std::any_of(kinds.begin(), kinds.end(), [&](const CardKind& daemon) {
            return daemon.name == kind.name;
        });
        EXPECT_TRUE(known || kind.kind == zolt_ports::CardKind::kUnidentified)
            << "src/bus/card_kinds.cpp lacks the clients' " << kind.name;
    }
}

TEST(KindTables, OfTheDaemonAndItsClientsAgreeOnTheBlocks) {
    for (const CardKind& kind : cardKinds()) {
        SCOPED_TRACE(kind.name);
        const zolt_ports::CardKindRow* client = clientKind(kind.name);
        if (client == nullptr) continue;
        EXPECT_EQ(client->isCard, kind.code != card_kind::kEmpty);
        EXPECT_EQ(client->output, outputCommand(kind));
        EXPECT_EQ(client->outputBlocks, kind.outputValues);
        EXPECT_EQ(client->inputBlocks, kind.cardClass == CardClass::kInput
                                           ? static_cast<unsigned>(kind.dataLength)
                                           : 0U);
        EXPECT_EQ(client->askableBlocks, kind.askableBlocks);
    }
}

}  // namespace
