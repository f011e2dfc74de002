#include "tests/golden/runner.h"

#include <gtest/gtest.h>
#include <signal.h>

#include <string>

#include "tests/golden/log_lines.h"
#include "tests/support/process/child_process.h"
#include "tests/support/process/daemon_process.h"

namespace {

/// The bus leaves one request without an answer, and the dialogue does not expect that. The
/// runner cannot tell this from a machine that was too slow.
constexpr const char* kUnexpectedTimeout = R"(bus all-kinds

sim fault silence for check once
boot
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
