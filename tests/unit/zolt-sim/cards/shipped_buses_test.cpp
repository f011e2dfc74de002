#include <gtest/gtest.h>

#include "apps/zolt-sim/cards/bus_file.h"
#include "apps/zolt-sim/cards/bus_model.h"

namespace zolt_sim {
namespace {

Bytes discovered(const std::string& name) {
    BusModel model(readBusFile(std::string(ZOLT_SIM_BUSES) + "/" + name));
    return model.answer({0x30}).answer.value();
}

TEST(ShippedBuses, AllKindsAreWhereTheHelpTextsExpectThem) {
    EXPECT_EQ(discovered("all-kinds.bus"),
              (Bytes{0x31, 5, 0, 0, 4, 0, 3, 0, 0, 8, 10, 6, 0, 0, 0, 9, 7}));
}

TEST(ShippedBuses, SixteenInputs) {
    Bytes expected(17, 4);
    expected[0] = 0x31;
    EXPECT_EQ(discovered("sixteen-inputs.bus"), expected);
}

TEST(ShippedBuses, Empty) {
    Bytes expected(17, 0);
    expected[0] = 0x31;
    EXPECT_EQ(discovered("empty.bus"), expected);
}

}  // namespace
}  // namespace zolt_sim
