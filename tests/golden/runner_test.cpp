#include "tests/golden/runner.h"

#include <gtest/gtest.h>
#include <signal.h>

#include <string>

#include "tests/golden/log_lines.h"
#include "tests/support/process/child_process.h"
#include "tests/support/process/daemon_process.h"

namespace {

/// The bus does not answer once, which this dialogue does not expect: that looks
/// like a machine that was too slow.
constexpr const char* kUnexpectedTimeout = R"(bus all-kinds

sim fault silence for check once
start
    log    [INF] zolt is started
    log    [INF] Initparam Autodiscover: FALSE
    log    [INF] Initparam Enablepoll: FALSE
    log    [INF] Initparam Speed (ThreadDelay): 2525
    log    [INF] CAE interface listening on port 5001
    log    [INF] IO interface listening on port 5002
    log    [INF] MON interface listening on port 5003
    log    [INF] CAE interface is waiting for incoming connection
    log    [INF] IO interface is waiting for incoming connection
    log    [INF] MON interface is waiting for incoming connection
    log    [INF] try to catch hardware on /dev/ttyUSB0
    log    [INF] hardware found on /dev/ttyUSB0 version: 1.04
    bus    host> 03 | 40 6F 9A
    bus    bus> 05 | 06 31 2E 30 34
)";

golden::Outcome play(const golden::Listener& listener) {
    return golden::check(golden::Dialogue::parse("timeout", kUnexpectedTimeout), listener);
}

TEST(Runner, CallsTheMachineTooSlowWhenAnAnswerWasGivenUp) {
    const golden::Outcome outcome = play({});
    EXPECT_NE(outcome.failure.find("comm timeout"), std::string::npos) << outcome.failure;
    EXPECT_TRUE(outcome.machineTooSlow);
}

TEST(Runner, CallsNoMachineTooSlowForADaemonThatCrashed) {
    golden::Listener listener;
    listener.item = [](const golden::Item& item) {
        if (!isTimeout(item)) return;
        const std::string program = support::DaemonProcess::defaultProgram();
        for (const pid_t daemon : support::childrenRunning(program)) ::kill(daemon, SIGSEGV);
    };
    const golden::Outcome outcome = play(listener);
    EXPECT_NE(outcome.failure.find("the daemon ended with "), std::string::npos) << outcome.failure;
    EXPECT_FALSE(outcome.machineTooSlow);
}

}  // namespace
