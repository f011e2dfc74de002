#include "apps/zolt-sim/adapter/device_link.h"

#include <gtest/gtest.h>

#include "tests/unit/zolt-sim/complaint_of.h"
#include "tests/unit/zolt-sim/support.h"

namespace zolt_sim {
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
    EXPECT_EQ(complaintOf([&] { const DeviceLink link(path, "/dev/null"); }),
              path + ": exists and is not a symbolic link, so it is left as it is");
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

TEST(DeviceLink, SaysWhyItCannotBeMade) {
    const test::Folder folder;
    const std::string path = folder.file("none/ttyUSB0");
    EXPECT_EQ(complaintOf([&] { const DeviceLink link(path, "/dev/null"); }),
              path + ": No such file or directory");
}

}  // namespace
}  // namespace zolt_sim
