#include <cmath>
#include <cstdint>
#include <ctime>
#include <filesystem>
#include <string>

#include "tests/process/process_test.h"
#include "tests/support/files.h"
#include "tests/support/tcp/tcp_client.h"

namespace {

constexpr const char* kBanner = "ZOLT IO interface is ready\r\n\r";

class LogFile : public ProcessTest {};

/// Makes the machine's time zone one without rules, so many hours east of universal time.
void setTimeZone(int hours) {
    const auto seconds = static_cast<std::uint32_t>(hours * 3600);
    std::string zone = "TZif" + std::string(40, '\0');
    zone[39] = 1;  // one kind of local time ...
    zone[43] = 4;  // ... whose name takes four bytes
    for (const int shift : {24, 16, 8, 0}) {
        zone += static_cast<char>(seconds >> shift);
    }
    zone += std::string(2, '\0') + "XYZ" + '\0';
    // A new file takes the place of the old one, as when an administrator sets the zone.
    support::writeFile("/etc/localtime.new", zone);
    std::filesystem::rename("/etc/localtime.new", "/etc/localtime");
}

/// The local hour of the last line of the log, as the difference from universal time.
int hoursEast(const std::string& log) {
    std::tm stamp{};
    const std::vector<std::string> lines = support::splitLines(log);
    if (lines.empty() || ::strptime(lines.back().c_str(), "%Y-%m-%d %H:%M:%S", &stamp) == nullptr) {
        return -100;
    }
    const double seconds = std::difftime(::timegm(&stamp), std::time(nullptr));
    // The line is younger than half an hour.
    return static_cast<int>(std::lround(seconds / 3600));
}

TEST_F(LogFile, DeletedFileReappearsWithTheNextLine) {
    startAndAwaitCalm();
    std::filesystem::remove(settings_.logFile);
    auto client = support::TcpClient::connect(support::kIoPort);
    ASSERT_EQ(client.receiveUntil("\n\r"), kBanner);
    const auto lines = logLines();
    ASSERT_EQ(lines.size(), 1U);
    EXPECT_TRUE(lines[0].starts_with("[INF] client is connected on IO interface from 127.0.0.1:"));
}

TEST_F(LogFile, TheTimeFollowsTheMachinesTimeZone) {
    setTimeZone(5);
    startAndAwaitCalm();
    EXPECT_EQ(hoursEast(support::readFile(settings_.logFile)), 5);
    setTimeZone(-3);
    std::filesystem::remove(settings_.logFile);
    auto client = support::TcpClient::connect(support::kIoPort);
    ASSERT_EQ(client.receiveUntil("\n\r"), kBanner);
    EXPECT_EQ(hoursEast(support::readFile(settings_.logFile)), -3);
}

TEST_F(LogFile, FileThatCannotBeOpenedDoesNotMatter) {
    settings_.logFile = "/run/no-such-folder/zolt.log";
    start();
    auto client = support::TcpClient::connect(support::kIoPort);
    EXPECT_EQ(client.receiveUntil("\n\r"), kBanner);
    EXPECT_EQ(daemon_.standardOutput(), "");
}

TEST_F(LogFile, HighLevelCreatesTheFileAndWritesNothing) {
    settings_.logLevel = 2;
    start();
    auto client = support::TcpClient::connect(support::kIoPort);
    ASSERT_EQ(client.receiveUntil("\n\r"), kBanner);
    ASSERT_EQ(daemon_.stop(), "");
    EXPECT_TRUE(std::filesystem::exists(settings_.logFile));
    EXPECT_EQ(support::readFile(settings_.logFile), "");
}

TEST_F(LogFile, RelativePathBeginsAtTheFolderOfTheStart) {
    std::filesystem::create_directory(support::workFolder() / "start");
    std::filesystem::current_path(support::workFolder() / "start");
    settings_.logFile = "relative.log";
    start();
    EXPECT_TRUE(logHas("[INF] zolt is started"));
    EXPECT_TRUE(std::filesystem::exists(support::workFolder() / "start" / "relative.log"));
}

}  // namespace
