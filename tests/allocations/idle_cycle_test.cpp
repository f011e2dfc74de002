#include "tests/allocations/allocation_test.h"

namespace {

constexpr int kCycles = 1000;

class IdleCycle : public AllocationTest {};

TEST_F(IdleCycle, TheMasterLoopTakesNothing) {
    for (int i = 0; i < kCycles; ++i) ASSERT_EQ(masterCycle(), 0U);
}

TEST_F(IdleCycle, TheMasterLoopTakesNothingBesideClients) {
    const auto cae = daemon_.connect(daemon_.cae());
    const auto io = daemon_.connect(daemon_.io());
    const auto mon = daemon_.connect(daemon_.mon());
    for (int i = 0; i < kCycles; ++i) ASSERT_EQ(masterCycle(), 0U);
}

TEST_F(IdleCycle, AnInterfaceWithAClientTakesNothing) {
    const auto client = daemon_.connect(daemon_.io());
    ASSERT_EQ(daemon_.io().descriptor.connectionState, ConnectionState::kConnected);
    for (int i = 0; i < kCycles; ++i) ASSERT_EQ(cycle(daemon_.io()), 0U);
}

TEST_F(IdleCycle, AnInterfaceThatDoesNotListenTakesNothing) {
    daemon_.io().descriptor.connectionState = ConnectionState::kNotListening;
    for (int i = 0; i < kCycles; ++i) ASSERT_EQ(cycle(daemon_.io()), 0U);
}

TEST_F(IdleCycle, TheSerialLinkTakesNothing) {
    ASSERT_EQ(daemon_.serial().linkState(), SERIAL_INTERFACE::LinkState::kReady);
    for (int i = 0; i < kCycles; ++i) ASSERT_EQ(cycle(daemon_.serial()), 0U);
    EXPECT_EQ(daemon_.bus.polls(), 0U);
}

}  // namespace
