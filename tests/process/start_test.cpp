#include <unistd.h>

#include <algorithm>
#include <filesystem>

#include "tests/process/process_test.h"

namespace {

class Start : public ProcessTest {};

TEST_F(Start, StartedProcessEndsWithStatus0AndLeavesTheDaemonRunning) {
    ASSERT_EQ(daemon_.start(), "status 0");
    EXPECT_TRUE(logHas("[INF] zolt is started"));
    EXPECT_TRUE(daemon_.running());
}

TEST_F(Start, StartedProcessEndsWithStatus0AlsoWhenTheDaemonFails) {
    std::filesystem::remove("/run/zolt");
    EXPECT_EQ(daemon_.start(), "status 0");
    EXPECT_EQ(daemon_.waitForEnd(), "status 1");
}

TEST_F(Start, DaemonLeadsASessionInTheFolderItWasStartedIn) {
    std::filesystem::current_path(support::workFolder());
    start();
    ASSERT_TRUE(logHas("[INF] zolt is started"));
    EXPECT_EQ(::getsid(daemon_.number()), daemon_.number());
    EXPECT_EQ(std::filesystem::read_symlink("/proc/" + std::to_string(daemon_.number()) + "/cwd"),
              support::workFolder());
}

TEST_F(Start, StandardStreamsStayOpen) {
    start();
    ASSERT_TRUE(logHas("[INF] zolt is started"));
    const std::string streams = "/proc/" + std::to_string(daemon_.number()) + "/fd/";
    EXPECT_EQ(std::filesystem::read_symlink(streams + "0"), "/dev/null");
    EXPECT_EQ(std::filesystem::read_symlink(streams + "1"), support::standardOutputFile());
    EXPECT_EQ(std::filesystem::read_symlink(streams + "2"), support::standardErrorFile());
}

TEST_F(Start, LogHasSettingsAndPortsInAFixedOrder) {
    settings_.discover = true;
    settings_.percent = 100;
    start();
    ASSERT_TRUE(logHas("[INF] MON interface listening on port 5003"));
    auto lines = logLines();
    // Each interface logs this line from a thread of its own.
    std::erase_if(lines, [](const std::string& line) {
        return line.find("is waiting for incoming connection") != std::string::npos;
    });
    EXPECT_EQ(lines,
              (std::vector<std::string>{
                  "[INF] zolt is started", "[INF] Initparam Autodiscover: TRUE",
                  "[INF] Initparam Enablepoll: FALSE", "[INF] Initparam Speed (ThreadDelay): 1",
                  "[INF] CAE interface listening on port 5001",
                  "[INF] IO interface listening on port 5002",
                  "[INF] MON interface listening on port 5003"}));
}

}  // namespace
