#include <filesystem>

#include "tests/process/process_test.h"
#include "tests/support/files.h"

namespace {

class PidFile : public ProcessTest {};

TEST_F(PidFile, HoldsTheDaemonsNumberWithoutALineEnd) {
    start();
    ASSERT_TRUE(logHas("[INF] zolt is started"));
    EXPECT_EQ(support::readFile(support::kPidFile), std::to_string(daemon_.number()));
}

TEST_F(PidFile, LongerContentOfAnEarlierRunIsGone) {
    support::writeFile(support::kPidFile, "123456789012345678901234567890\n");
    start();
    ASSERT_TRUE(logHas("[INF] zolt is started"));
    EXPECT_EQ(support::readFile(support::kPidFile), std::to_string(daemon_.number()));
}

TEST_F(PidFile, StaysAfterTheDaemonsEnd) {
    start();
    ASSERT_TRUE(logHas("[INF] zolt is started"));
    ASSERT_EQ(daemon_.stop(), "");
    EXPECT_EQ(support::readFile(support::kPidFile), std::to_string(daemon_.number()));
}

TEST_F(PidFile, StaysAfterAConfigurationFailure) {
    std::filesystem::remove(support::kConfigurationFile);
    ASSERT_EQ(daemon_.start(), "status 0");
    ASSERT_EQ(daemon_.waitForEnd(), "status 0");
    EXPECT_EQ(support::readFile(support::kPidFile), std::to_string(daemon_.number()));
}

TEST_F(PidFile, MissingFolderIsReportedOnStandardOutputAndEndsTheDaemon) {
    std::filesystem::remove("/run/zolt");
    ASSERT_EQ(daemon_.start(), "status 0");
    EXPECT_EQ(daemon_.waitForEnd(), "status 1");
    EXPECT_EQ(daemon_.standardOutput(), "Couldn't open pid file.\n");
    EXPECT_FALSE(std::filesystem::exists(settings_.logFile));
    EXPECT_FALSE(std::filesystem::exists("/run/zolt"));
}

}  // namespace
