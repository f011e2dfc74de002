#include "tests/process/process_test.h"

#include <algorithm>

#include "tests/support/files.h"
#include "tests/support/text/time_stamp.h"

void ProcessTest::SetUp() {
    support::enterTestBed();
    support::writeConfiguration(settings_.toXml());
}

void ProcessTest::TearDown() {
    if (daemon_.running()) {
        EXPECT_EQ(daemon_.stop(), "");
    }
    EXPECT_EQ(daemon_.standardError(), "");
}

void ProcessTest::start(std::optional<int> output) {
    support::writeConfiguration(settings_.toXml());
    ASSERT_EQ(daemon_.start(output), "status 0");
}

void ProcessTest::startAndAwaitCalm() {
    start();
    for (const std::string name : {"CAE", "IO", "MON"}) {
        ASSERT_TRUE(logHas("[INF] " + name + " interface is waiting for incoming connection"));
    }
    ASSERT_TRUE(logHas("[INF] MON interface listening on port 5003"));
}

bool ProcessTest::logHas(const std::string& line, int times) const {
    return support::waitUntil([&] {
        const auto lines = logLines();
        return std::count(lines.begin(), lines.end(), line) >= times;
    });
}

std::vector<std::string> ProcessTest::logLines() const {
    std::vector<std::string> lines;
    for (const auto& line : support::splitLines(support::readFile(settings_.logFile))) {
        if (line.find("ttyUSB devices couldn't be found") != std::string::npos) continue;
        lines.push_back(support::withoutLogTime(line));
    }
    return lines;
}
