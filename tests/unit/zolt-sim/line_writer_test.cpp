#include "apps/zolt-sim/line_writer.h"

#include <fcntl.h>
#include <gtest/gtest.h>

#include <array>
#include <csignal>

#include "apps/zolt-sim/cards/bus_file.h"
#include "tests/unit/zolt-sim/support.h"

namespace sim {
namespace {

struct Pipe {
    Pipe() {
        std::array<int, 2> ends{};
        if (::pipe2(ends.data(), O_CLOEXEC) != 0) {
            throw std::runtime_error("pipe2 failed");
        }
        reader = Descriptor(ends[0]);
        writer = Descriptor(ends[1]);
    }
    Descriptor reader;
    Descriptor writer;
};

TEST(LineWriter, HasWrittenEverythingInOrderWhenItEnds) {
    const test::Folder folder;
    const std::string path = folder.file("out");
    std::string expected;
    {
        const Descriptor file = checked(::open(path.c_str(), O_WRONLY | O_CREAT, 0600), "open");
        LineWriter writer(file.get());
        for (int i = 0; i < 5000; ++i) {
            const std::string line = "line " + std::to_string(i) + "\n";
            writer.write(line);
            expected += line;
        }
    }
    EXPECT_EQ(readTextFile(path), expected);
}

TEST(LineWriter, WritesWithoutBeingEnded) {
    const test::Folder folder;
    const std::string path = folder.file("out");
    const Descriptor file = checked(::open(path.c_str(), O_WRONLY | O_CREAT, 0600), "open");
    LineWriter writer(file.get());
    writer.write("now\n");
    EXPECT_TRUE(test::waitUntil([&] { return readTextFile(path) == "now\n"; }));
}

TEST(LineWriter, NeverWaitsForAReaderThatDoesNotRead) {
    const Pipe pipe;
    const std::string line(1000, 'x');
    {
        LineWriter writer(pipe.writer.get());
        for (int i = 0; i < 101000; ++i) {
            writer.write(line + "\n");
        }
    }
    std::array<char, 1001> first{};
    ASSERT_EQ(::read(pipe.reader.get(), first.data(), first.size()), 1001);
    EXPECT_EQ(std::string(first.data(), first.size()), line + "\n");
}

TEST(LineWriter, OutlivesAReaderThatGoesAway) {
    std::signal(SIGPIPE, SIG_IGN);
    Pipe pipe;
    LineWriter writer(pipe.writer.get());
    { const Descriptor gone = std::move(pipe.reader); }
    for (int i = 0; i < 1000; ++i) {
        writer.write("lost\n");
    }
}

}  // namespace
}  // namespace sim
