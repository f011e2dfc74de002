#include "tests/allocations/allocation_test.h"

namespace {

class ConsoleAllocations : public AllocationTest {};

TEST_F(ConsoleAllocations, AReplyTakesItsBytesTwiceAndItsText) {
    auto cae = daemon_.connect(daemon_.cae());
    receive(cae, daemon_.cae(), "DRVVER\r\n");
    // "CIA: DRIVER VERSION 1.20" and its line end, as text and byte by byte, and
    // again as the queue's item; the prompt is short enough for a text without
    // room of its own.
    EXPECT_EQ(masterCycle(), 4U + 2U * (26U + 3U));
    daemon_.cae().OnTask();
    daemon_.cae().OnTask();
    EXPECT_EQ(cae.receiveUntil(">\r\n\r"), "CIA: DRIVER VERSION 1.20\r\n\r>\r\n\r");
}

}  // namespace
