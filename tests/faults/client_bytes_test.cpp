#include <algorithm>
#include <string>
#include <vector>

#include "tests/faults/fault_test.h"
#include "tests/support/wait.h"

namespace {

using support::TcpClient;
using support::waitUntil;

constexpr std::size_t kChunk = 255;

class ClientBytes : public FaultTest {
  protected:
    /// Sends a packet and waits until the daemon has read it, so that the daemon reads the
    /// next packet by itself.
    static void sendChunk(TcpClient& client, const std::string& bytes) {
        client.send(bytes);
        ASSERT_TRUE(waitUntil([&] { return client.peerHasReadAll(); }));
    }

    /// Packets of 255 equal bytes, one for each value, and one packet with all values.
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

    static std::string outputLine(unsigned low) { return "a5b1d" + hexByte(low) + "\r\n"; }

    /// The second blocks of all outputs that card 5 gets, up to and including this one.
    std::vector<unsigned> outputsUntil(unsigned last) {
        const std::string output = " host> 05 | 10 05 02 FF ";
        std::vector<unsigned> blocks;
        waitUntil([&] {
            for (const auto& line : bus_->readNewTrace()) {
                const auto at = line.find(output);
                if (at == std::string::npos) continue;
                blocks.push_back(static_cast<unsigned>(
                    std::stoul(line.substr(at + output.size()), nullptr, 16)));
            }
            return !blocks.empty() && blocks.back() == last;
        });
        return blocks;
    }

    /// The part of `came` that has been sent, in this order.
    static std::vector<unsigned> inOrder(const std::vector<unsigned>& came,
                                         const std::vector<unsigned>& sent) {
        std::vector<unsigned> found;
        auto from = sent.begin();
        for (const unsigned value : came) {
            from = std::find(from, sent.end(), value);
            if (from == sent.end()) break;
            found.push_back(value);
            ++from;
        }
        return found;
    }

    static constexpr const char* kLinkLost = "[INF] comm timeout /dev/ttyUSB0";
    /// The packets of a flood; the daemon reads each of them by itself.
    static constexpr unsigned kFloodPackets = 60;
    static constexpr unsigned kLinesPerPacket = 28;

    /// The memory for one byte of a queued line: an element of a list.
    static constexpr long kKeptPerByte = 40;
};

TEST_F(ClientBytes, EveryByteValueOnEachPort) {
    startServing();
    auto monitor = greeted(support::kMonPort);
    for (auto* client : {&monitor, &io(), &console()}) sendEveryByteValue(*client);
    ASSERT_TRUE(waitUntil([&] { return monitor.peerHasReadAll(); }));
    monitor.reset();
    // The daemon keeps what a monitor sends. The replies to all this come before those of the
    // round.
    before_.memory += kKeptPerByte * 257 * static_cast<long>(kChunk);
    expectServesAsBefore();
}

TEST_F(ClientBytes, AFloodOnIoThatIsReadPacketByPacketReachesTheCardWholeAndInOrder) {
    settings_.percent = 99;
    startServing();
    constexpr unsigned kLast = 0xEE;
    for (int flood = 0; flood < 2; ++flood) {
        EXPECT_NE(answered("DISABLEPOLL", "DISABLED"), "");
        const long lostBefore = timesLogged(kLinkLost);
        std::vector<unsigned> sent;
        for (unsigned packet = 0; packet < kFloodPackets; ++packet) {
            std::string lines;
            for (unsigned i = 0; i < kLinesPerPacket; ++i) {
                sent.push_back(static_cast<unsigned>(sent.size()) % kLast);
                lines += outputLine(sent.back());
            }
            sendChunk(io(), lines);
        }
        sent.push_back(kLast);
        sendChunk(io(), outputLine(kLast));
        const std::vector<unsigned> came = outputsUntil(kLast);
        // A busy machine may cost the link, and with the link the frame under way.
        const auto lost = static_cast<std::size_t>(timesLogged(kLinkLost) - lostBefore);
        EXPECT_GE(came.size() + lost, sent.size());
        EXPECT_EQ(came, inOrder(came, sent));
        EXPECT_NE(answered("ENABLEPOLL", "ENABLED"), "");
        expectFullRound();
        // The second flood may use the memory of the first one again.
        if (flood == 0) noteState();
    }
    expectServesAsBefore();
}

TEST_F(ClientBytes, AFloodOnIoAndOnMonCostsNoClientTheService) {
    settings_.percent = 99;
    startServing();
    std::string lines;
    for (unsigned i = 0; i < kLinesPerPacket; ++i) lines += outputLine(i);
    for (int flood = 0; flood < 2; ++flood) {
        auto monitor = greeted(support::kMonPort);
        // No packet waits until the previous one is read, so the reads cut the bytes anywhere.
        for (unsigned packet = 0; packet < kFloodPackets; ++packet) {
            io().send(lines);
            monitor.send(lines);
        }
        EXPECT_NE(answered("DRVVER", "1.20"), "");
        for (auto* client : {&monitor, &io()}) {
            ASSERT_TRUE(waitUntil([&] { return client->peerHasReadAll(); }));
        }
        sendOutput(0xEE);
        ASSERT_TRUE(outputArrives(0xEE));
        monitor.reset();
        expectFullRound();
        if (flood == 0) before_.memory = memory();
    }
    // The daemon keeps what a monitor sends.
    before_.memory += kKeptPerByte * kFloodPackets * static_cast<long>(lines.size());
    expectServesAsBefore();
}

TEST_F(ClientBytes, ErrorsOfIoWaitForTheConsoleAndCostMemoryUntilThen) {
    settings_.percent = 99;
    startServing();
    // The first run has a console and shows what the allocator keeps.
    for (int flood = 0; flood < 2; ++flood) {
        console_.reset();
        const long before = memory();
        constexpr int kPackets = 20;
        constexpr int kPerPacket = 85;
        std::string lines;
        for (int i = 0; i < kPerPacket; ++i) lines += "Z\r\n";
        for (int packet = 0; packet < kPackets; ++packet) sendChunk(io(), lines);
        // This line comes after all others, so that every error is queued when it arrives.
        sendOutput(static_cast<unsigned>(flood) + 1);
        EXPECT_TRUE(outputArrives(static_cast<unsigned>(flood) + 1));
        if (flood == 0 && memoryIsMeaningful()) {
            EXPECT_GT(memory(), before);
        }
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
