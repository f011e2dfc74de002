// Inputs of the real daemon: asked for, watched, monitored.
#include <signal.h>

#include "tests/support/tcp/tcp_client.h"
#include "tests/zoltctl/daemon_test.h"

namespace {

using ctl_test::ZoltctlProcess;

class DaemonInputs : public DaemonTest {
  protected:
    void SetUp() override {
        DaemonTest::SetUp();
        settings_.polling = true;
        // Slow loops: few polls, so that a busy machine loses no answer.
        settings_.percent = -400;
    }

    // Reads on until the whole output, without the times, is `expected`; the output
    // that it was in the end.
    static std::string follow(ZoltctlProcess& process, const std::string& expected) {
        std::string output;
        std::string text;
        support::waitUntil([&] {
            output += process.readNewOutput();
            text.clear();
            for (const std::string& line : support::splitLines(output)) {
                text += line.substr(std::min(kTime.size(), line.size())) + "\n";
            }
            return text == expected;
        });
        return text;
    }

    static constexpr std::string_view kTime = "2026-11-21 14:03:07.123";
};

TEST_F(DaemonInputs, OfADigitalCard) {
    start();
    sim_->control("press 3 6");
    sim_->control("set 3 1 7F");
    ASSERT_TRUE(reached("bus>  04 | 21 03 40 7F")) << sim_->traceTail(10);
    EXPECT_EQ(outputOf({"input", "3"}), "card 3: block 0 is 40\ncard 3: block 1 is 7F\n");
}

TEST_F(DaemonInputs, OfAnAnalogueCard) {
    start();
    EXPECT_EQ(outputOf({"--json", "input", "F", "5"}),
              "[{\"address\":\"F\",\"block\":5,\"value\":0,\"hex\":\"00\"}]\n");
}

TEST_F(DaemonInputs, AreWatchedAndMonitored) {
    start();
    ZoltctlProcess monitor({"monitor"});
    ZoltctlProcess watch({"watch"});
    ASSERT_TRUE(logged("client is connected on MON interface"));
    ASSERT_TRUE(logged("client is connected on IO interface"));
    ASSERT_TRUE(logged("client is connected on CAE interface"));
    std::string shown;
    std::string watched;
    const auto change = [&](const std::string& control, const std::string& report,
                            const std::string& text) {
        sim_->control(control);
        shown += "  " + report + "\n";
        watched += text + "\n";
    };
    change("press 3 6", "a3b0d40", "  3  16 channel DIGITAL INPUT  block 0  40");
    EXPECT_EQ(follow(watch, watched), watched);
    watched.clear();
    change("release 3 6", "a3b0d00", "  3  16 channel DIGITAL INPUT  block 0  00");
    EXPECT_EQ(follow(watch, watched), watched);
    watched.clear();
    change("key 8 5A", "a8b0d5A", "  8  KEYMX and ROTE CONTROLLER  block 0  5A");
    EXPECT_EQ(follow(watch, watched), watched);
    EXPECT_EQ(follow(monitor, shown), shown);
    watch.signal(SIGINT);
    monitor.signal(SIGTERM);
    EXPECT_EQ(watch.waitForEnd().end, "status 130");
    EXPECT_EQ(monitor.waitForEnd().end, "status 143");
}

TEST_F(DaemonInputs, AreWatchedUpToACount) {
    start();
    ZoltctlProcess counted({"--json", "watch", "--count", "2"});
    ZoltctlProcess timed({"monitor", "--for", "1"});
    ASSERT_TRUE(logged("client is connected on IO interface"));
    sim_->control("set 3 1 7F");
    ASSERT_TRUE(reached("bus>  04 | 21 03 00 7F")) << sim_->traceTail(10);
    sim_->control("set 3 1 01");
    auto outcome = counted.waitForEnd();
    EXPECT_EQ(outcome.end, "status 0");
    EXPECT_EQ(outcome.errors, "");
    constexpr std::size_t kJsonTime =
        std::string_view(R"({"time":"2026-11-21T14:03:07.123+00:00")").size();
    std::vector<std::string> shown;
    for (const std::string& line : support::splitLines(outcome.output)) {
        shown.push_back(line.substr(std::min(kJsonTime, line.size())));
    }
    EXPECT_EQ(
        shown,
        (std::vector<std::string>{
            R"(,"address":"3","kind":"16 channel DIGITAL INPUT","block":1,"value":127,"hex":"7F"})",
            R"(,"address":"3","kind":"16 channel DIGITAL INPUT","block":1,"value":1,"hex":"01"})"}));
    outcome = timed.waitForEnd();
    EXPECT_EQ(outcome.end, "status 0");
    EXPECT_EQ(outcome.errors, "");
}

TEST_F(DaemonInputs, AreWatchedForATime) {
    start();
    EXPECT_EQ(outputOf({"watch", "--no-names", "--for", "0.5"}), "");
}

}  // namespace
