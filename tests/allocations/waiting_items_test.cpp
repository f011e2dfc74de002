// These tests are not about allocations, but they use the same daemon without threads. They
// show that each item keeps its reader from resting until the item is taken.
#include "tests/allocations/allocation_test.h"
#include "tests/support/hand_run/hand_run_workers.h"

namespace {

using support::waitingItems;

class WaitingItems : public AllocationTest {};

TEST_F(WaitingItems, AFrameWaitsForTheBus) {
    for (std::size_t index = 0; index < wire::kQueues; ++index) {
        daemon_.serial().commandQueue(index).ToQueue({wire::kOutput, 14, 2, 1, 2});
        EXPECT_EQ(waitingItems(), 1) << index;
        daemon_.serial().OnTask();
        EXPECT_EQ(waitingItems(), 0) << index;
    }
}

TEST_F(WaitingItems, AReplyWaitsForItsInterface) {
    for (SOCKET_INTERFACE* interface : {&daemon_.cae(), &daemon_.io(), &daemon_.mon()}) {
        const auto client = daemon_.connect(*interface);
        interface->replyQueue.ToQueue({'x'});
        EXPECT_EQ(waitingItems(), 1);
        interface->OnTask();
        EXPECT_EQ(waitingItems(), 0);
    }
}

TEST_F(WaitingItems, ALineAndAReportWaitForTheMasterLoop) {
    auto cae = daemon_.connect(daemon_.cae());
    receive(cae, daemon_.cae(), "HELP\r\n");
    EXPECT_EQ(waitingItems(), 1);
    auto io = daemon_.connect(daemon_.io());
    receive(io, daemon_.io(), "a0b0d01\r\n");
    EXPECT_EQ(waitingItems(), 2);
    daemon_.serial().globalPolling = true;
    daemon_.serial().OnTask();
    daemon_.bus.inputs[3] = {'\x40'};
    daemon_.serial().globalPolling = false;
    daemon_.serial().OnTask();
    EXPECT_EQ(waitingItems(), 3);
}

TEST_F(WaitingItems, WhatAMonitorSendsWaitsForNoReader) {
    auto mon = daemon_.connect(daemon_.mon());
    receive(mon, daemon_.mon(), "HELP\r\n");
    EXPECT_EQ(waitingItems(), 0);
}

}  // namespace
