#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <set>
#include <string>

#include "core/logger.h"
#include "lib/os/descriptor.h"
#include "tests/support/files.h"
#include "tests/support/temporary_folder.h"

namespace {

namespace fs = std::filesystem;
using support::readFile;
using support::splitLines;

/// The descriptors of this process that refer to the file.
std::set<int> descriptorsOf(const std::string& path) {
    std::set<int> found;
    for (const auto& entry : fs::directory_iterator("/proc/self/fd")) {
        std::error_code gone;
        if (fs::read_symlink(entry.path(), gone) == path) {
            found.insert(std::stoi(entry.path().filename().string()));
        }
    }
    return found;
}

class LoggerFile : public testing::Test {
  protected:
    LoggerFile() { logger_.fileName = path_; }
    ~LoggerFile() override {
        for (const int descriptor : descriptorsOf(path_)) {
            close(descriptor);
        }
    }

    std::vector<std::string> lines() const { return splitLines(readFile(path_)); }

    support::TemporaryFolder folder_;
    std::string path_ = fs::canonical(folder_.file("")).string() + "/zolt.log";
    LOGGER logger_;
};

TEST_F(LoggerFile, IsClosedAfterEveryLine) {
    for (int i = 0; i < 20; ++i) {
        logger_.info("line");
    }
    EXPECT_EQ(lines().size(), 20U);
    EXPECT_TRUE(descriptorsOf(path_).empty());
}

TEST_F(LoggerFile, StaysOpenOnceForEveryFilteredMessage) {
    logger_.level = 2;
    for (std::size_t messages = 1; messages <= 5; ++messages) {
        logger_.info("filtered");
        EXPECT_EQ(descriptorsOf(path_).size(), messages);
    }
    for (const int descriptor : descriptorsOf(path_)) {
        // No program that this process starts gets them.
        EXPECT_NE(fcntl(descriptor, F_GETFD) & FD_CLOEXEC, 0);
    }
}

TEST_F(LoggerFile, IsCreatedByAFilteredMessage) {
    logger_.level = 2;
    logger_.info("filtered");
    EXPECT_TRUE(fs::exists(path_));
    EXPECT_EQ(readFile(path_), "");
}

TEST_F(LoggerFile, IsAppendedTo) {
    support::writeFile(path_, "before\n");
    logger_.info("line");
    ASSERT_EQ(lines().size(), 2U);
    EXPECT_EQ(lines()[0], "before");
}

TEST_F(LoggerFile, MayBeRotatedAndDeleted) {
    const std::string rotated = folder_.file("zolt.log.1");
    logger_.info("one");
    fs::rename(path_, rotated);
    logger_.info("two");
    logger_.info("three");
    EXPECT_EQ(splitLines(readFile(rotated)).size(), 1U);
    EXPECT_EQ(lines().size(), 2U);
    fs::remove(path_);
    logger_.info("four");
    EXPECT_EQ(lines().size(), 1U);
    fs::resize_file(path_, 0);
    logger_.info("five");
    EXPECT_EQ(lines().size(), 1U);
}

TEST_F(LoggerFile, WithoutANameDoesNotExist) {
    const fs::path start = fs::current_path();
    fs::current_path(folder_.file(""));
    logger_.fileName.clear();
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    logger_.error("nowhere");
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    fs::current_path(start);
    EXPECT_TRUE(fs::is_empty(folder_.file("")));
}

TEST_F(LoggerFile, IsSkippedSilentlyWhenItCannotBeOpened) {
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    logger_.fileName = folder_.file("missing/zolt.log");
    logger_.error("nowhere");
    logger_.fileName = folder_.file("");
    logger_.error("nowhere");
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    EXPECT_TRUE(fs::is_empty(folder_.file("")));
    // The lock was given back.
    logger_.fileName = path_;
    logger_.info("somewhere");
    EXPECT_EQ(lines().size(), 1U);
}

TEST_F(LoggerFile, MayBeAPipeWithoutAReader) {
    ASSERT_EQ(mkfifo(path_.c_str(), 0600), 0);
    logger_.info("no reader");
    const zolt_os::Descriptor reader(open(path_.c_str(), O_RDONLY | O_NONBLOCK));
    ASSERT_TRUE(reader.valid());
    for (int i = 0; i < 200; ++i) {
        logger_.info(std::string(900, 'x'));
    }
    EXPECT_EQ(descriptorsOf(path_), std::set<int>{reader.get()});
}

}  // namespace
