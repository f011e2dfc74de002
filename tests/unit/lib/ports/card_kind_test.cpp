#include "lib/ports/card_kind.h"

#include <gtest/gtest.h>

using namespace zolt_ports;

namespace {

TEST(ClientCardKinds, AreFoundByTheirNameAndByTheirKind) {
    for (const CardKindRow& row : cardKinds()) {
        EXPECT_EQ(kindNamed(row.name), row.kind) << row.name;
        EXPECT_EQ(rowOf(row.kind).name, row.name);
    }
}

TEST(ClientCardKinds, UnknownNameIsAnUnidentifiedCard) {
    EXPECT_EQ(kindNamed("UNIDENTIFIED"), CardKind::kUnidentified);
    EXPECT_EQ(kindNamed("8 channel RELAY"), CardKind::kUnidentified);
    EXPECT_EQ(kindNamed(""), CardKind::kUnidentified);
    EXPECT_TRUE(rowOf(CardKind::kUnidentified).isCard);
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
