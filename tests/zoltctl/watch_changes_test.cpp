#include <signal.h>
#include <stdlib.h>

#include <deque>
#include <iostream>
#include <optional>
#include <string>
#include <vector>

#include "tests/support/tcp/tcp_client.h"
#include "tests/support/text/hex_number.h"
#include "tests/support/wait.h"
#include "tests/zoltctl/daemon_test.h"

namespace {

using support::Clock;
using support::TcpClient;

constexpr std::string_view kHexDigits = "0123456789ABCDEF";
constexpr std::size_t kCards = 16;
constexpr std::size_t kBlocks = 2;
constexpr std::size_t kChangesOfSuite = 3000;

// What tools/watch-hour asks for; the suite goes by the number of changes.
std::optional<std::chrono::minutes> wantedDuration() {
    const char* minutes = ::getenv("ZOLT_WATCH_MINUTES");
    if (minutes == nullptr) return std::nullopt;
    return std::chrono::minutes(std::stol(minutes));
}

// One block of one card, which changes again and again.
struct Input {
    char address;
    char block;
    unsigned value = 0;
    bool settled = true;

    std::string report() const {
        return std::string("a") + address + "b" + block + "d" + support::hexNumber(value, 2);
    }
};

// A report "a3b0d40" as zoltctl prints it after the time.
std::string printedForm(const std::string& report) {
    return "  " + report.substr(1, 1) + "  16 channel DIGITAL INPUT  block " + report.substr(3, 1) +
           "  " + report.substr(5);
}

// Takes whole lines out of a stream that comes in pieces.
std::deque<std::string> cutLines(std::string& bytes, const std::string& end) {
    std::deque<std::string> lines;
    std::size_t start = 0;
    for (auto found = bytes.find(end); found != std::string::npos; found = bytes.find(end, start)) {
        lines.push_back(bytes.substr(start, found - start));
        start = found + end.size();
    }
    bytes.erase(0, start);
    return lines;
}

// Sixteen digital input cards. A block changes again when the monitor port has
// shown its last change, so that polling sees each one; zoltctl has to print what
// the monitor port shows, all of it and in its order.
class WatchChanges : public DaemonTest {
  protected:
    void SetUp() override {
        DaemonTest::SetUp();
        bus_ = support::shippedBus("sixteen-inputs");
        settings_.polling = true;
        settings_.percent = 100;
        for (std::size_t i = 0; i < kCards * kBlocks; ++i) {
            inputs_.push_back({kHexDigits[i / kBlocks], kHexDigits[i % kBlocks]});
        }
        startUntraced();
        monitor_ = TcpClient::connect(support::kMonPort);
        ASSERT_EQ(monitor_->receiveUntil("\n\r"), "ZOLT MON interface is ready\r\n\r");
        watch_.emplace(std::vector<std::string>{"watch"});
        // Without an IO client the daemon reports no changes.
        ASSERT_TRUE(logged("client is connected on IO interface"));
        // By now the cards have long been identified: that was asked a second after
        // the start, and a port takes its first client after three.
    }

    // Changes every input whose last change has been shown.
    void changeInputs() {
        std::vector<std::string> controls;
        for (Input& input : inputs_) {
            if (!input.settled) continue;
            input.value = (input.value + 1) % 256;
            input.settled = false;
            controls.push_back(std::string("set ") + input.address + " " + input.block + " " +
                               support::hexNumber(input.value, 2));
        }
        sim_->controlAll(controls);
        made_ += controls.size();
    }

    // True when something new has come on either side.
    bool readBoth() {
        monitorBytes_ += monitor_->receive();
        const auto shown = cutLines(monitorBytes_, "\r\n\r");
        for (const std::string& report : shown) {
            for (Input& input : inputs_) {
                input.settled = input.settled || input.report() == report;
            }
            shown_.push_back(printedForm(report));
        }
        watchBytes_ += watch_->readNewOutput();
        const auto printed = cutLines(watchBytes_, "\n");
        printed_.insert(printed_.end(), printed.begin(), printed.end());
        shownCount_ += shown.size();
        printedCount_ += printed.size();
        return !shown.empty() || !printed.empty();
    }

    // Compares as far as both sides have come.
    void compare() {
        constexpr std::size_t kTimeLength = std::string_view("2026-11-21 14:03:07.123").size();
        while (!shown_.empty() && !printed_.empty()) {
            ASSERT_GT(printed_.front().size(), kTimeLength);
            ASSERT_EQ(printed_.front().substr(kTimeLength), shown_.front());
            shown_.pop_front();
            printed_.pop_front();
        }
    }

    bool enough() const {
        if (const auto duration = wantedDuration()) return Clock::now() - begin_ >= *duration;
        return made_ >= kChangesOfSuite;
    }

    bool allSettled() const {
        for (const Input& input : inputs_) {
            if (!input.settled) return false;
        }
        return shownCount_ == printedCount_;
    }

    Clock::time_point begin_ = Clock::now();
    std::vector<Input> inputs_;
    std::optional<TcpClient> monitor_;
    std::optional<ctl_test::ZoltctlProcess> watch_;
    std::string monitorBytes_;
    std::string watchBytes_;
    std::deque<std::string> shown_;
    std::deque<std::string> printed_;
    std::size_t made_ = 0;
    std::size_t shownCount_ = 0;
    std::size_t printedCount_ = 0;
};

TEST_F(WatchChanges, NoneIsLost) {
    while (!enough() || !allSettled()) {
        if (!enough()) changeInputs();
        ASSERT_TRUE(support::waitUntil([&] { return readBoth(); }))
            << made_ << " changes made, " << shownCount_ << " shown on the monitor port, "
            << printedCount_ << " printed by zoltctl";
        compare();
        if (HasFatalFailure()) return;
    }
    watch_->signal(SIGINT);
    const auto outcome = watch_->waitForEnd();
    EXPECT_EQ(outcome.end, "status 130");
    EXPECT_EQ(outcome.output, "");
    EXPECT_EQ(outcome.errors, "");
    EXPECT_EQ(watchBytes_, "");
    EXPECT_GE(made_, wantedDuration() ? 1 : kChangesOfSuite);
    EXPECT_EQ(shownCount_, made_);
    EXPECT_EQ(printedCount_, made_);
    std::cout << made_ << " changes made, " << shownCount_ << " shown on the monitor port, "
              << printedCount_ << " printed by zoltctl" << std::endl;
}

}  // namespace
