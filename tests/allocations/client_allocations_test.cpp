#include "common/byte_list.h"
#include "tests/allocations/allocation_test.h"

namespace {

class ClientAllocations : public AllocationTest {
  protected:
    void reply(const std::string& text) {
        daemon_.io().replyQueue.ToQueue(ByteList(text.begin(), text.end()));
    }
};

TEST_F(ClientAllocations, WhatAClientSendsTakesItsBytes) {
    auto client = daemon_.connect(daemon_.io());
    EXPECT_EQ(receive(client, daemon_.io(), "aEb1dFB\r\n"), 9U);
}

TEST_F(ClientAllocations, AShortReplyTakesNothing) {
    auto client = daemon_.connect(daemon_.io());
    reply("a3b0d40\r\n");
    EXPECT_EQ(cycle(daemon_.io()), 0U);
    EXPECT_EQ(client.receiveUntil("\r\n\r"), "a3b0d40\r\n\r");
}

TEST_F(ClientAllocations, ALongReplyTakesItsTextOnce) {
    auto client = daemon_.connect(daemon_.io());
    const std::string text(200, 'x');
    reply(text);
    EXPECT_EQ(cycle(daemon_.io()), 1U);
    EXPECT_EQ(client.receiveUntil("\r"), text + "\r");
}

}  // namespace
