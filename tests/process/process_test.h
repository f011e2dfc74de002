#pragma once

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "tests/support/process/daemon_process.h"
#include "tests/support/process/daemon_settings.h"
#include "tests/support/process/private_view.h"
#include "tests/support/wait.h"

/// One daemon in its private view. There is no adapter unless a test plugs one in.
/// Every case runs in a process and in namespaces of its own.
class ProcessTest : public ::testing::Test {
  protected:
    void SetUp() override;
    /// Stops a daemon that still runs, which has to end with status 0. Fails the test if a
    /// sanitizer has reported anything.
    void TearDown() override;

    /// Writes the configuration and starts the daemon; `output` as for
    /// DaemonProcess::start().
    void start(std::optional<int> output = std::nullopt);
    /// Starts the daemon and waits until the interfaces have logged their start.
    void startAndAwaitCalm();
    /// Waits until the log has `times` lines with this tag and text ("[INF] text").
    bool logHas(const std::string& line, int times = 1) const;
    /// The log without time stamps and without the lines about missing adapters, whose number
    /// depends on the duration of the test.
    std::vector<std::string> logLines() const;

    support::DaemonSettings settings_;
    support::DaemonProcess daemon_;
};
