#include "lib/ports/card_kind.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "bus/card_kinds.h"

using namespace zolt_ports;

namespace {

/// What the daemon does with a card, by the columns of its own table.
std::optional<OutputCommand> outputOf(const ::CardKind& kind) {
    switch (kind.stream) {
        case CardStream::kLcd:
            return OutputCommand::kLcd;
        case CardStream::kInfrared:
            return OutputCommand::kInfrared;
        case CardStream::kNone:
            break;
    }
    return kind.outputValues > 0 ? std::optional(OutputCommand::kBlock) : std::nullopt;
}

TEST(ClientCardKinds, AreThoseOfTheDaemon) {
    for (const ::CardKind& kind : ::cardKinds()) {
        SCOPED_TRACE(kind.name);
        const CardKindRow& row = rowOf(kindNamed(kind.name));
        EXPECT_EQ(row.name, kind.name);
        EXPECT_EQ(row.isCard, kind.code != card_kind::kEmpty);
        EXPECT_EQ(row.output, outputOf(kind));
        EXPECT_EQ(row.outputBlocks, kind.outputValues);
        EXPECT_EQ(row.inputBlocks, kind.cardClass == CardClass::kInput
                                       ? static_cast<unsigned>(kind.dataLength)
                                       : 0U);
        EXPECT_EQ(row.askableBlocks, kind.askableBlocks);
    }
    // The daemon has a row of its own for cards that it does not know.
    EXPECT_EQ(zolt_ports::cardKinds().size(), ::cardKinds().size() + 1);
}

TEST(ClientCardKinds, UnknownNameIsAnUnidentifiedCard) {
    EXPECT_EQ(kindNamed("UNIDENTIFIED"), zolt_ports::CardKind::kUnidentified);
    EXPECT_EQ(kindNamed("8 channel RELAY"), zolt_ports::CardKind::kUnidentified);
    EXPECT_EQ(kindNamed(""), zolt_ports::CardKind::kUnidentified);
    EXPECT_TRUE(rowOf(zolt_ports::CardKind::kUnidentified).isCard);
}

TEST(ClientCardKinds, AreListedForAMessage) {
    EXPECT_EQ(neededKinds([](const CardKindRow& row) { return row.askableBlocks > 0; }),
              "a digital input card or an analogue input card");
    EXPECT_EQ(neededKinds([](const CardKindRow& row) { return row.outputBlocks > 0; }),
              "a digital output card, an RC servo card or a DC motor card");
    EXPECT_EQ(neededKinds([](const CardKindRow& row) { return row.output == OutputCommand::kLcd; }),
              "an LCD controller card");
}

}  // namespace
