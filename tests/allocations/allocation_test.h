#pragma once

#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <string>

#include "bus/card_kinds.h"
#include "tests/support/hand_run/hand_run_daemon.h"
#include "tests/support/wait.h"

/// A byte list takes one allocation per byte. A queue keeps its items in blocks
/// of 21 and takes a new one whenever 21 items have passed.
inline constexpr std::size_t kItemsOfABlock = 21;

/// The daemon with 14 digital inputs, an output card at E and an LCD at F.
class AllocationTest : public testing::Test {
  protected:
    static constexpr std::size_t kInputs = 14;

    static std::array<char, wire::kAddresses> kinds() {
        std::array<char, wire::kAddresses> kinds{};
        kinds.fill(card_kind::kDigitalInput);
        kinds[14] = card_kind::kDigitalOutput;
        kinds[15] = card_kind::kLcd;
        return kinds;
    }

    /// The number of allocations in one cycle of a worker.
    template <typename Worker>
    static std::size_t cycle(Worker& worker) {
        return support::allocationsOf([&] { worker.OnTask(); }).count;
    }

    std::size_t masterCycle() { return daemon_.masterCycle().count; }

    /// Lets a client's bytes arrive and its interface queue them. Gives the number of
    /// allocations in the interface's cycles.
    static std::size_t receive(support::TcpClient& client, SOCKET_INTERFACE& interface,
                               const std::string& bytes) {
        client.send(bytes);
        std::size_t taken = 0;
        EXPECT_TRUE(support::waitUntil([&] {
            taken += cycle(interface);
            return client.peerHasReadAll();
        }));
        return taken;
    }

    support::HandRunDaemon daemon_{kinds()};
};
