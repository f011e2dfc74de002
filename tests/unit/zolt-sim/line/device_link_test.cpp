#include "apps/zolt-sim/line/device_link.h"

#include <gtest/gtest.h>

#include "tests/unit/zolt-sim/support.h"

namespace sim {
namespace {

namespace fs = std::filesystem;

TEST(DeviceLink, LivesAsLongAsItsObject) {
    const test::Folder folder;
    const std::string path = folder.file("ttyUSB0");
    {
        const DeviceLink link(path, "/dev/null");
        EXPECT_EQ(fs::read_symlink(path), "/dev/null");
    }
    EXPECT_FALSE(fs::is_symlink(fs::symlink_status(path)));
}

TEST(DeviceLink, ReplacesAnOlderLink) {
    const test::Folder folder;
    const std::string path = folder.file("ttyUSB0");
    fs::create_symlink("/nowhere", path);
    const DeviceLink link(path, "/dev/null");
    EXPECT_EQ(fs::read_symlink(path), "/dev/null");
}

TEST(DeviceLink, NeverTouchesAnythingElse) {
    const test::Folder folder;
    const std::string path = folder.write("ttyUSB0", "precious");
    try {
        const DeviceLink link(path, "/dev/null");
        FAIL() << "accepted";
    } catch (const std::runtime_error& error) {
        EXPECT_EQ(error.what(), path + ": exists and is no symbolic link, left as it is");
    }
    EXPECT_EQ(fs::file_size(path), 8U);
}

TEST(DeviceLink, LeavesALinkThatPointsElsewhere) {
    const test::Folder folder;
    const std::string path = folder.file("ttyUSB0");
    {
        const DeviceLink link(path, "/dev/null");
        fs::remove(path);
        fs::create_symlink("/dev/zero", path);
    }
    EXPECT_EQ(fs::read_symlink(path), "/dev/zero");
}

TEST(DeviceLink, TellsWhyItCannotBeMade) {
    const test::Folder folder;
    const std::string path = folder.file("none/ttyUSB0");
    try {
        const DeviceLink link(path, "/dev/null");
        FAIL() << "accepted";
    } catch (const std::runtime_error& error) {
        EXPECT_EQ(error.what(), path + ": No such file or directory");
    }
}

}  // namespace
}  // namespace sim
