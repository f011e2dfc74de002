#include "tests/zoltctl/daemon_test.h"

#include <algorithm>

#include "tests/support/process/private_view.h"
#include "tests/support/wait.h"

void DaemonTest::SetUp() {
    support::enterTestBed();
    settings_.discover = true;
}

void DaemonTest::TearDown() {
    if (daemon_.running()) {
        EXPECT_EQ(daemon_.stop(), "");
    }
    EXPECT_EQ(daemon_.standardError(), "");
    if (sim_) {
        EXPECT_EQ(sim_->stop(), "");
    }
}

void DaemonTest::start() {
    startBoth(true);
    // The answer that names the card of each address.
    ASSERT_TRUE(reached("bus>  11 | 31")) << sim_->traceTail(20);
}

void DaemonTest::startUntraced() {
    startBoth(false);
}

void DaemonTest::startBoth(bool traced) {
    support::SimProcess::Options options;
    options.bus = bus_;
    options.traced = traced;
    sim_ = std::make_unique<support::SimProcess>(options);
    support::writeConfiguration(settings_.toXml());
    ASSERT_EQ(daemon_.start(), "status 0");
}

bool DaemonTest::reached(const std::string& text) {
    return support::waitUntil([&] {
        for (auto& line : sim_->readNewTrace()) trace_.push_back(std::move(line));
        return std::any_of(trace_.begin(), trace_.end(), [&](const std::string& line) {
            return line.find(text) != std::string::npos;
        });
    });
}

bool DaemonTest::logged(const std::string& text) const {
    return support::waitUntil(
        [&] { return support::readFile(settings_.logFile).find(text) != std::string::npos; });
}

std::string DaemonTest::outputOf(const std::vector<std::string>& arguments) const {
    const auto outcome = ctl_test::run(arguments);
    EXPECT_EQ(outcome.end, "status 0");
    EXPECT_EQ(outcome.errors, "");
    return outcome.output;
}
