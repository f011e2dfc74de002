#include "apps/zolt-sim/background_writer.h"

#include <fcntl.h>
#include <gtest/gtest.h>

#include <array>
#include <csignal>

#include "apps/zolt-sim/text_file.h"
#include "lib/os/descriptor.h"
#include "tests/unit/zolt-sim/support.h"

namespace zolt_sim {
namespace {

struct Pipe {
    Pipe() {
        std::array<int, 2> ends{};
        if (::pipe2(ends.data(), O_CLOEXEC) != 0) {
            throw std::runtime_error("pipe2 failed");
        }
        reader = zolt_os::Descriptor(ends[0]);
        writer = zolt_os::Descriptor(ends[1]);
    }
    zolt_os::Descriptor reader;
    zolt_os::Descriptor writer;
};

TEST(BackgroundWriter, HasWrittenEverythingInOrderWhenItEnds) {
    const test::Folder folder;
    const std::string path = folder.file("out");
    std::string expected;
    {
        const zolt_os::Descriptor file =
            zolt_os::checked(::open(path.c_str(), O_WRONLY | O_CREAT, 0600), "open");
        BackgroundWriter writer(file.get());
        for (int i = 0; i < 5000; ++i) {
            const std::string line = "line " + std::to_string(i) + "\n";
            writer.write(line);
            expected += line;
        }
    }
    EXPECT_EQ(readTextFile(path), expected);
}

TEST(BackgroundWriter, WritesWithoutBeingEnded) {
    const test::Folder folder;
    const std::string path = folder.file("out");
    const zolt_os::Descriptor file =
        zolt_os::checked(::open(path.c_str(), O_WRONLY | O_CREAT, 0600), "open");
    BackgroundWriter writer(file.get());
    writer.write("now\n");
    EXPECT_TRUE(test::waitUntil([&] { return readTextFile(path) == "now\n"; }));
}

TEST(BackgroundWriter, NeverWaitsForAReaderThatDoesNotRead) {
    const Pipe pipe;
    const std::string line(1000, 'x');
    {
        BackgroundWriter writer(pipe.writer.get());
        for (int i = 0; i < 101000; ++i) {
            writer.write(line + "\n");
        }
    }
    std::array<char, 1001> first{};
    ASSERT_EQ(::read(pipe.reader.get(), first.data(), first.size()), 1001);
    EXPECT_EQ(std::string(first.data(), first.size()), line + "\n");
}

// The assertion is that the test ends: a writer that tried the failed write again and
// again would never let its destructor finish.
TEST(BackgroundWriter, EndsAlthoughItsReaderHasGone) {
    std::signal(SIGPIPE, SIG_IGN);
    Pipe pipe;
    BackgroundWriter writer(pipe.writer.get());
    { const zolt_os::Descriptor gone = std::move(pipe.reader); }
    for (int i = 0; i < 1000; ++i) {
        writer.write("lost\n");
    }
}

}  // namespace
}  // namespace zolt_sim
