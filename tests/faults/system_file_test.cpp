#include <sys/mount.h>
#include <sys/stat.h>

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <system_error>

#include "tests/faults/fault_test.h"
#include "tests/support/files.h"
#include "tests/support/process/private_view.h"
#include "tests/support/wait.h"

namespace {

using support::readFile;
using support::waitUntil;

/// Mounts a file system in memory, with these options, over a folder. It ends with the
/// private view.
void mountOver(const std::filesystem::path& folder, const std::string& options,
               unsigned long flags = 0) {
    std::filesystem::create_directories(folder);
    if (::mount("tmpfs", folder.c_str(), "tmpfs", flags, options.c_str()) != 0) {
        throw std::system_error(errno, std::generic_category(), "mount over " + folder.string());
    }
}

/// Writes to a file until the disk is full.
void fillUp(const std::filesystem::path& file) {
    std::ofstream filler(file, std::ios::binary);
    while (filler << std::string(512, 'x') << std::flush) {
    }
}

class SystemLogFile : public FaultTest {
  protected:
    std::uintmax_t logSize() const { return std::filesystem::file_size(settings_.logFile); }
    void leaveAndComeBack() {
        io_.reset();
        expectFullRound();
    }

    const std::filesystem::path folder_ = support::workFolder() / "logs";
};

TEST_F(SystemLogFile, DiskFull) {
    mountOver(folder_, "size=16k");
    settings_.logFile = folder_ / "zolt.log";
    startServing();
    fillUp(folder_ / "filler");
    fillUp(folder_ / "filler2");
    // The last page of the log may still have room.
    std::ofstream(settings_.logFile, std::ios::app) << std::string(4096 - logSize() % 4096, 'x');
    const auto full = logSize();
    leaveAndComeBack();
    EXPECT_EQ(logSize(), full);
    std::filesystem::remove(folder_ / "filler");
    leaveAndComeBack();
    EXPECT_GT(logSize(), full);
    expectServesAsBefore();
}

TEST_F(SystemLogFile, FolderGoneAndBack) {
    std::filesystem::create_directories(folder_);
    settings_.logFile = folder_ / "zolt.log";
    startServing();
    std::filesystem::remove_all(folder_);
    leaveAndComeBack();
    EXPECT_FALSE(std::filesystem::exists(folder_));
    std::filesystem::create_directories(folder_);
    leaveAndComeBack();
    EXPECT_GT(timesLogged("[INF] IO interface listening on port 5002"), 0);
    expectServesAsBefore();
}

class SystemPidFile : public FaultTest {
  protected:
    void expectRefused() {
        startDaemon();
        EXPECT_EQ(daemon_.waitForEnd(), "status 1");
        EXPECT_EQ(daemon_.standardOutput(), "Couldn't open pid file.\n");
    }
    void expectStarted() {
        startServing();
        EXPECT_EQ(readFile(support::kPidFile), std::to_string(daemon_.number()));
        expectServesAsBefore();
    }
};

TEST_F(SystemPidFile, AFolderInItsPlaceEndsTheDaemon) {
    std::filesystem::create_directory(support::kPidFile);
    expectRefused();
    std::filesystem::remove(support::kPidFile);
    expectStarted();
}

TEST_F(SystemPidFile, AReadOnlyFileSystemEndsTheDaemon) {
    mountOver("/run/zolt", "size=16k", MS_RDONLY);
    expectRefused();
    ASSERT_EQ(::umount("/run/zolt"), 0);
    expectStarted();
}

TEST_F(SystemPidFile, AFullFileSystemLeavesItEmpty) {
    mountOver("/run/zolt", "size=4k");
    fillUp("/run/zolt/filler");
    startServing();
    EXPECT_EQ(readFile(support::kPidFile), "");
    expectServesAsBefore();
}

TEST_F(SystemPidFile, AReadOnlyFileIsWrittenByRoot) {
    support::writeFile(support::kPidFile, "an earlier one\n");
    ASSERT_EQ(::chmod(support::kPidFile, 0444), 0);
    expectStarted();
}

TEST_F(SystemPidFile, ASymbolicLinkIsFollowed) {
    const auto target = support::workFolder() / "elsewhere";
    std::filesystem::create_symlink(target, support::kPidFile);
    expectStarted();
    EXPECT_TRUE(std::filesystem::is_symlink(support::kPidFile));
    EXPECT_EQ(readFile(target), std::to_string(daemon_.number()));
}

}  // namespace
