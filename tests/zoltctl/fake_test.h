#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "tests/support/files.h"
#include "tests/support/process/daemon_settings.h"
#include "tests/support/process/private_view.h"
#include "tests/zoltctl/fake_tcp_port.h"
#include "tests/zoltctl/zoltctl_process.h"

/// zoltctl against a scripted daemon on the default ports, in a private view.
class FakeTest : public ::testing::Test {
  protected:
    void SetUp() override {
        support::enterTestBed();
        std::filesystem::remove(support::kConfigurationFile);
    }

    /// Lines end in CR LF, so that nothing is asked but what a test is about.
    static ctl_test::Outcome run(const std::vector<std::string>& arguments) {
        return ctl_test::run(arguments, {.environment = {"ZOLT_LINE_END=crlf"}});
    }
};

/// Compares all that a finished zoltctl leaves; `error` is the line on standard error.
inline void expectOutcome(const ctl_test::Outcome& outcome, int status, const std::string& output,
                          const std::string& error = {}) {
    EXPECT_EQ(outcome.end, "status " + std::to_string(status));
    EXPECT_EQ(outcome.output, output);
    EXPECT_EQ(outcome.errors, error.empty() ? error : error + "\n");
}
