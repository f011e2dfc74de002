#include "tests/faults/fault_test.h"
#include "tests/support/wait.h"

namespace {

using support::TcpClient;
using support::waitUntil;

constexpr std::size_t kChunk = 255;

class ClientBytes : public FaultTest {
  protected:
    /// Sends a packet and waits until the daemon has read it, so that the next one
    /// is a chunk of its own.
    static void sendChunk(TcpClient& client, const std::string& bytes) {
        client.send(bytes);
        ASSERT_TRUE(waitUntil([&] { return client.peerHasReadAll(); }));
    }

    /// 255 times each byte value, and all values in one chunk.
    static void sendEveryByteValue(TcpClient& client) {
        std::string all;
        for (int value = 0; value < 256; ++value) {
            sendChunk(client, std::string(kChunk, static_cast<char>(value)));
            if (value != 0) all += static_cast<char>(value);
        }
        ASSERT_EQ(all.size(), kChunk);
        sendChunk(client, all);
    }

    long memory() const { return stateOf(daemon_.number()).memory; }

    /// What a byte of a queued line costs: an element of a list.
    static constexpr long kKeptPerByte = 40;
};

TEST_F(ClientBytes, EveryByteValueOnEachPort) {
    startServing();
    auto monitor = greeted(support::kMonPort);
    for (auto* client : {&monitor, &io(), &console()}) sendEveryByteValue(*client);
    ASSERT_TRUE(waitUntil([&] { return monitor.peerHasReadAll(); }));
    monitor.reset();
    // What a monitor sends is kept; the replies to all that come before the round's.
    before_.memory += kKeptPerByte * 257 * static_cast<long>(kChunk);
    expectServesAsBefore();
}

TEST_F(ClientBytes, AFloodOnIoReachesTheCardWhole) {
    settings_.percent = 99;
    startServing();
    constexpr unsigned kPackets = 60;
    constexpr unsigned kPerPacket = 28;
    for (int flood = 0; flood < 2; ++flood) {
        EXPECT_NE(answered("DISABLEPOLL", "DISABLED"), "");
        for (unsigned packet = 0; packet < kPackets; ++packet) {
            std::string lines;
            for (unsigned i = 0; i < kPerPacket; ++i) lines += "a5b1d" + hexByte(i) + "\r\n";
            io().send(lines);
        }
        io().send("a5b1dEE\r\n");
        ASSERT_TRUE(outputArrives(0xEE));
        EXPECT_NE(answered("ENABLEPOLL", "ENABLED"), "");
        expectFullRound();
        // What the first one has used may be used again by the next.
        if (flood == 0) noteState();
    }
    expectServesAsBefore();
}

TEST_F(ClientBytes, ErrorsOfIoWaitForTheConsoleAndCostMemoryUntilThen) {
    settings_.percent = 99;
    startServing();
    // Once with a console, so that what the allocator keeps is known.
    for (int flood = 0; flood < 2; ++flood) {
        console_.reset();
        const long before = memory();
        constexpr int kPackets = 20;
        constexpr int kPerPacket = 85;
        std::string lines;
        for (int i = 0; i < kPerPacket; ++i) lines += "Z\r\n";
        for (int packet = 0; packet < kPackets; ++packet) sendChunk(io(), lines);
        EXPECT_TRUE(waitUntil([&] { return memory() > before || !memoryIsMeaningful(); }));
        expectFullRound();
        RecordProperty("bytes_per_error_" + std::to_string(flood),
                       std::to_string((memory() - before) / (kPackets * kPerPacket)));
        if (flood == 0) noteState();
    }
    expectServesAsBefore();
}

TEST_F(ClientBytes, WhatAMonitorSendsStaysInMemory) {
    settings_.percent = 99;
    startServing();
    auto monitor = greeted(support::kMonPort);
    const long before = memory();
    constexpr long kPackets = 1000;
    for (long packet = 0; packet < kPackets; ++packet) {
        sendChunk(monitor, std::string(kChunk, 'm'));
    }
    monitor.reset();
    expectFullRound();
    const long growth = memory() - before;
    constexpr long kSent = kPackets * static_cast<long>(kChunk);
    RecordProperty("bytes_kept_per_byte_sent", std::to_string(growth / kSent));
    if (memoryIsMeaningful()) {
        EXPECT_LE(growth, kSent * kKeptPerByte);
    }
    before_.memory += growth;
    expectServesAsBefore();
}

}  // namespace
