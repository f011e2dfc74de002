#include "tests/allocations/allocation_test.h"

namespace {

class ConsoleAllocations : public AllocationTest {};

TEST_F(ConsoleAllocations, AReplyTakesItsBytesAndItsText) {
    auto cae = daemon_.connect(daemon_.cae());
    receive(cae, daemon_.cae(), "DRVVER\r\n");
    // "CIA: DRIVER VERSION 1.20" and its line end: a text that grows, its copy with
    // the line end, which grows, too, and the bytes of the item. The prompt is
    // short enough for a text without room of its own.
    EXPECT_EQ(masterCycle(), 4U + 26U + 3U);
    daemon_.cae().OnTask();
    daemon_.cae().OnTask();
    EXPECT_EQ(cae.receiveUntil(">\r\n\r"), "CIA: DRIVER VERSION 1.20\r\n\r>\r\n\r");
}

}  // namespace
