#include <filesystem>

#include "tests/process/process_test.h"
#include "tests/support/files.h"
#include "tests/support/tcp/tcp_client.h"

namespace {

constexpr const char* kBanner = "ZOLT IO interface is ready\r\n\r";

class LogFile : public ProcessTest {};

TEST_F(LogFile, DeletedFileReappearsWithTheNextLine) {
    startAndAwaitCalm();
    std::filesystem::remove(settings_.logFile);
    auto client = support::TcpClient::connect(support::kIoPort);
    ASSERT_EQ(client.receiveUntil("\n\r"), kBanner);
    const auto lines = logLines();
    ASSERT_EQ(lines.size(), 1U);
    EXPECT_TRUE(lines[0].starts_with("[INF] client is connected on IO interface from 127.0.0.1:"));
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
