#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "tests/support/process/daemon_process.h"
#include "tests/support/process/daemon_settings.h"
#include "tests/support/process/sim_process.h"
#include "tests/zoltctl/zoltctl_process.h"

/// zoltctl and the real daemon on a simulated bus, in a private view. The
/// configuration is where zoltctl looks for it by itself.
class DaemonTest : public ::testing::Test {
  protected:
    void SetUp() override;
    /// Both have to end properly, and no sanitizer may have reported anything.
    void TearDown() override;

    /// Starts both and waits until the cards are known.
    void start();
    /// Starts both; the bus writes no trace, so nothing can be waited for there.
    void startUntraced();
    /// Waits until the simulated bus has traced a line that holds `text`, such as
    /// a frame or what a card did.
    bool reached(const std::string& text);
    /// Waits until the daemon's log has a line that holds `text`.
    bool logged(const std::string& text) const;
    /// Runs one command that has to succeed and returns what it prints.
    std::string outputOf(const std::vector<std::string>& arguments) const;

    support::DaemonSettings settings_;
    std::string bus_ = support::shippedBus("all-kinds");
    support::DaemonProcess daemon_;
    std::unique_ptr<support::SimProcess> sim_;

  private:
    void startBoth(bool traced);

    std::vector<std::string> trace_;
};
