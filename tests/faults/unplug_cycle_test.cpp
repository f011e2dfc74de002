#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "apps/zolt-sim/simulated_bus.h"
#include "bus/serial_interface.h"
#include "lib/text/hexadecimal.h"
#include "tests/faults/daemon_state.h"
#include "tests/support/doubles/recorded_pauses.h"
#include "tests/support/process/private_view.h"
#include "tests/support/temporary_log.h"
#include "tests/support/wait.h"

namespace {

using support::waitUntil;

constexpr int kUnplugs = 300;
constexpr long kMemoryMargin = 512L * 1024;
/// An element of a list.
constexpr long kPerQueuedByte = 32;

/// The serial link without the rest of the daemon. Its pauses of whole seconds take no time.
class UnplugCycle : public testing::Test {
  protected:
    void SetUp() override { support::enterTestBed(); }

    /// Starts the link on a bus with these cards, with discovery and polling.
    void openLink(const std::string& cards) {
        zolt_sim::BusOptions options;
        options.link = "/dev/ttyUSB0";
        options.baud = 0;
        options.keepTrace = false;
        options.sinks.push_back({[this](const std::string& line) { keep(line); }, false});
        bus_ = std::make_unique<zolt_sim::SimulatedBus>(cards, options);
        LOGGER logger;
        logger.fileName = log_.path();
        link_ = std::make_unique<SERIAL_INTERFACE>("", logger, cards_, &reports_, true, true);
        link_->threadDelay = 500;
    }

    void TearDown() override {
        link_.reset();
        bus_.reset();
    }

    void control(const std::string& line) {
        const auto answer = bus_->control(line);
        ASSERT_EQ(answer.error, "") << line;
    }

    /// Waits for a new trace line; `line` has no time.
    bool traced(const std::string& text) {
        return waitUntil([&] {
            const std::lock_guard guard(lock_);
            const auto found = std::find(trace_.begin(), trace_.end(), text);
            if (found == trace_.end()) return false;
            trace_.erase(trace_.begin(), found + 1);
            return true;
        });
    }

    void forgetTrace() {
        const std::lock_guard guard(lock_);
        trace_.clear();
    }

    /// Waits for a report of the input card.
    bool reported(const std::string& text) {
        return waitUntil([&] {
            while (!reports_.IsEmpty()) {
                const ByteList report = reports_.DeQueue();
                if (std::string(report.begin(), report.end()) == text) return true;
            }
            return false;
        });
    }

    void expectServes() {
        forgetTrace();
        const char value = static_cast<char>(++value_);
        const std::string text = zolt_text::hexByte(static_cast<std::uint8_t>(value));
        link_->commandQueue(5).ToQueue({0x10, 5, 2, 0x11, value});
        EXPECT_TRUE(traced("card 5 digital-output: 11 " + text));
        control("set 3 0 " + text);
        EXPECT_TRUE(reported("a3b0d" + text));
    }

    /// Again and again the adapter goes in the middle of an answer and comes back under
    /// another name.
    void replug(int cycles) {
        for (int cycle = 0; cycle < cycles; ++cycle) {
            forgetTrace();
            control("fault raw 03 21 at 3 for poll once");
            ASSERT_TRUE(traced("raw>  03 21")) << cycle;
            control("unplug");
            control("plug /dev/ttyUSB" + std::to_string((cycle + 1) % 10));
            ASSERT_TRUE(traced("host> 03 | 40 6F 9A")) << cycle;
            if (cycle % 30 == 0) expectServes();
        }
        expectServes();
    }

    /// Checks that since `before` no descriptor was left open and that memory has grown by at
    /// most this size.
    void expectNothingLeft(const DaemonState& before, long memory) {
        const DaemonState after = stateOf(::getpid());
        RecordProperty("bytes_after_all_losses", std::to_string(after.memory - before.memory));
        EXPECT_EQ(after.descriptors, before.descriptors);
        EXPECT_EQ(after.threads, before.threads);
        if (memoryIsMeaningful()) {
            EXPECT_LE(after.memory, before.memory + memory)
                << "before: " << before.describe() << "\nafter:  " << after.describe();
        }
    }

  private:
    void keep(const std::string& line) {
        const std::lock_guard guard(lock_);
        trace_.push_back(line.substr(line.find(' ') + 1));
    }

    support::RecordedPauses pauses_;
    support::TemporaryLog log_;
    std::mutex lock_;
    std::vector<std::string> trace_;
    unsigned char value_ = 0;
    CardTable cards_;
    ZLQUEUE reports_;
    std::unique_ptr<zolt_sim::SimulatedBus> bus_;
    std::unique_ptr<SERIAL_INTERFACE> link_;
};

TEST_F(UnplugCycle, ThreeHundredTimesInMidFrameUnderOtherNames) {
    openLink("3 digital-input\n5 digital-output\n8 keymatrix\nF analogue-input\n");
    expectServes();
    const DaemonState before = stateOf(::getpid());
    replug(kUnplugs);
    // Each loss makes the poll request of a card longer by one frame and leaves one more
    // request waiting.
    constexpr long kInputCards = 3;
    constexpr long kPollFrame = 3;
    constexpr long kQueued = kInputCards * kPollFrame * kUnplugs * (kUnplugs + 1) / 2;
    // A heap that grows by pieces of every size has holes, here up to a tenth of its size. A
    // leak shows in the next case, which leaves nothing waiting.
    constexpr long kLimit = kQueued * kPerQueuedByte * 3 / 2;
    expectNothingLeft(before, kLimit + kMemoryMargin);
}

TEST_F(UnplugCycle, MemoryIsFlatWhereNoPollWaitsAfterTheTornOne) {
    openLink("3 digital-input\n5 digital-output\n");
    expectServes();
    const DaemonState before = stateOf(::getpid());
    replug(kUnplugs);
    expectNothingLeft(before, kMemoryMargin);
}

}  // namespace
