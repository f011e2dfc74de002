#include "bus/serial_port.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <vector>

#include "tests/unit/bus/scripted_line.h"

namespace {

/// The numbers under which this process has `path` open, beside those in `known`.
std::vector<int> descriptorsOf(const std::string& path, const std::vector<int>& known = {}) {
    std::vector<int> numbers;
    for (const auto& entry : std::filesystem::directory_iterator("/proc/self/fd")) {
        std::error_code gone;
        const int number = std::stoi(entry.path().filename());
        if (std::filesystem::read_symlink(entry.path(), gone) == path &&
            std::find(known.begin(), known.end(), number) == known.end()) {
            numbers.push_back(number);
        }
    }
    return numbers;
}

class Port : public testing::Test {
  protected:
    std::vector<int> openNumbers() const { return descriptorsOf(line_.path(), before_); }

    ScriptedLine line_;
    std::vector<int> before_ = descriptorsOf(line_.path());
    SerialPort port_;
};

TEST_F(Port, OpensForNonBlockingTrafficThatNoChildInherits) {
    ASSERT_TRUE(port_.open(line_.path()));
    ASSERT_EQ(openNumbers().size(), 1U);
    const int flags = ::fcntl(openNumbers()[0], F_GETFL);
    EXPECT_EQ(flags & O_ACCMODE, O_RDWR);
    EXPECT_EQ(flags & O_NONBLOCK, O_NONBLOCK);
    EXPECT_EQ(flags & O_SYNC, O_SYNC);
    EXPECT_EQ(::fcntl(openNumbers()[0], F_GETFD) & FD_CLOEXEC, FD_CLOEXEC);
}

TEST_F(Port, AMissingDeviceStaysClosed) {
    EXPECT_FALSE(port_.open("/dev/there-is-no-such-port"));
    EXPECT_EQ(errno, ENOENT);
    char byte = 0;
    EXPECT_EQ(port_.read(&byte, 1), -1);
    EXPECT_EQ(errno, EBADF);
}

TEST_F(Port, OpeningClosesWhatWasOpen) {
    ASSERT_TRUE(port_.open(line_.path()));
    ASSERT_TRUE(port_.open(line_.path()));
    EXPECT_EQ(openNumbers().size(), 1U);
    EXPECT_FALSE(port_.open("/dev/there-is-no-such-port"));
    EXPECT_TRUE(openNumbers().empty());
}

TEST_F(Port, AClosedPortFailsEveryCallAndTouchesNoOtherFile) {
    ASSERT_TRUE(port_.open(line_.path()));
    const int number = openNumbers()[0];
    port_.close();
    EXPECT_TRUE(openNumbers().empty());
    // The file that gets the number next must not get the port's calls.
    int ends[2];
    ASSERT_EQ(::pipe(ends), 0);
    EXPECT_TRUE(ends[0] == number || ends[1] == number);
    char byte = 'x';
    EXPECT_EQ(port_.write(&byte, 1), -1);
    EXPECT_EQ(errno, EBADF);
    EXPECT_EQ(port_.read(&byte, 1), -1);
    EXPECT_EQ(errno, EBADF);
    EXPECT_EQ(port_.apply(termios{}), EBADF);
    port_.close();
    EXPECT_NE(::fcntl(ends[0], F_GETFD), -1);
    EXPECT_NE(::fcntl(ends[1], F_GETFD), -1);
    ::close(ends[0]);
    ::close(ends[1]);
}

TEST_F(Port, ReadsAndWritesWithoutWaiting) {
    ASSERT_TRUE(port_.open(line_.path()));
    char bytes[4] = {};
    EXPECT_EQ(port_.read(bytes, sizeof bytes), -1);
    EXPECT_EQ(errno, EAGAIN);
    line_.put("41 42 43");
    EXPECT_EQ(port_.read(bytes, sizeof bytes), 3);
    EXPECT_STREQ(bytes, "ABC");
    EXPECT_EQ(port_.write("xy", 2), 2);
    EXPECT_EQ(line_.takeWrites(), std::vector<std::string>{"78 79"});
}

TEST_F(Port, ReportsWhySettingsAreRefused) {
    ASSERT_TRUE(port_.open("/dev/null"));
    EXPECT_EQ(port_.apply(termios{}), ENOTTY);
}

}  // namespace
