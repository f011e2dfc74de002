#pragma once

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "tests/support/process/daemon_process.h"
#include "tests/support/process/daemon_settings.h"
#include "tests/support/process/private_view.h"
#include "tests/support/wait.h"

/// One daemon in its private view, without an adapter unless a test brings one.
/// Every case runs in a process and in namespaces of its own.
class ProcessTest : public ::testing::Test {
  protected:
    void SetUp() override;
    /// A daemon that still runs is stopped and has to do so properly; whatever a
    /// sanitizer reported fails the test.
    void TearDown() override;

    /// Writes the configuration and starts the daemon, with its standard output
    /// as DaemonProcess::start takes it.
    void start(std::optional<int> output = std::nullopt);
    /// As start, and waits until the interfaces have said all they say unasked.
    void startAndAwaitCalm();
    /// Waits until the log has a line with this tag and text, "[INF] text", so
    /// many times.
    bool logHas(const std::string& line, int times = 1) const;
    /// The log without time stamps and without the lines about missing adapters,
    /// whose number depends on the time.
    std::vector<std::string> logLines() const;

    support::DaemonSettings settings_;
    support::DaemonProcess daemon_;
};
