#include "apps/zolt-sim/program.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <array>
#include <stdexcept>
#include <thread>

#include "apps/zolt-sim/error.h"
#include "apps/zolt-sim/text_file.h"
#include "lib/os/descriptor.h"
#include "lib/os/event.h"
#include "tests/unit/zolt-sim/complaint_of.h"
#include "tests/unit/zolt-sim/support.h"

namespace zolt_sim {
namespace {

/// Runs the wired program on a thread of the test, with a pipe as its input and a file as
/// its output.
class ProgramTest : public ::testing::Test {
  protected:
    ProgramTest() {
        std::array<int, 2> ends{};
        if (::pipe2(ends.data(), O_CLOEXEC) != 0) {
            throw std::runtime_error("pipe2 failed");
        }
        input_ = zolt_os::Descriptor(ends[0]);
        inputWriter_ = zolt_os::Descriptor(ends[1]);
        output_ = zolt_os::checked(
            ::open(outputPath_.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600), "open");
        options_.busFile = folder_.write("x.bus", "3 digital-input\n5 digital-output\n");
        options_.link = folder_.file("ttyUSB0");
        options_.baud = 0;
    }

    void run() { runProgram(options_, {input_.get(), output_.get(), stop_.get()}); }

    void type(const std::string& text) const {
        ASSERT_EQ(::write(inputWriter_.get(), text.data(), text.size()),
                  static_cast<ssize_t>(text.size()));
    }

    std::string printed() const { return readTextFile(outputPath_); }

    static bool exists(const std::string& path) {
        return std::filesystem::exists(std::filesystem::symlink_status(path));
    }

    test::Folder folder_;
    Options options_;
    zolt_os::Event stop_;

  private:
    std::string outputPath_ = folder_.file("output");
    zolt_os::Descriptor input_;
    zolt_os::Descriptor inputWriter_;
    zolt_os::Descriptor output_;
};

TEST_F(ProgramTest, CarriesOutControlsOfItsInputUntilQuit) {
    options_.filter = TraceFilter::kNone;
    type("press 3 6\nshow 3\nquit\n");
    run();
    EXPECT_EQ(printed(), "ok\n3 digital-input: 40 00\nok\nok\n");
    EXPECT_FALSE(exists(options_.link));
}

TEST_F(ProgramTest, EndsWhenTheStopBecomesReadable) {
    options_.controlPath = folder_.file("control");
    std::thread program([this] { run(); });
    EXPECT_TRUE(test::waitUntil([&] { return exists(options_.link); }));
    EXPECT_TRUE(exists(options_.controlPath));
    stop_.raise();
    program.join();
    EXPECT_FALSE(exists(options_.link));
    EXPECT_FALSE(exists(options_.controlPath));
}

TEST_F(ProgramTest, FiltersWhatItPrintsButNotTheTraceFile) {
    options_.filter = TraceFilter::kNone;
    options_.traceFile = folder_.file("trace");
    type("press 3 6\nquit\n");
    run();
    EXPECT_EQ(printed(), "ok\nok\n");
    const std::string trace = readTextFile(options_.traceFile);
    EXPECT_NE(trace.find(" note opened as " + options_.link + "\n"), std::string::npos) << trace;
    EXPECT_NE(trace.find(" card 3 digital-input: 40 00\n"), std::string::npos) << trace;
}

TEST_F(ProgramTest, PutsTheScenarioAndItsAnswersIntoTheTrace) {
    options_.scenarioFile =
        folder_.write("x.scenario", "0 press 3 6\n0 press 5 1\n0.01 show 3\n0.02 quit\n");
    run();
    const std::string output = printed();
    for (const char* line : {" note scenario: press 3 6\n", " card 3 digital-input: 40 00\n",
                             " note scenario: press 5 1\n",
                             " note error: address 5 is digital-output, not digital-input\n",
                             " note 3 digital-input: 40 00\n", " note scenario: quit\n"}) {
        EXPECT_NE(output.find(line), std::string::npos) << line << output;
    }
}

TEST_F(ProgramTest, ThatCannotStartLeavesNothingBehind) {
    options_.controlPath = folder_.file("control");
    options_.traceFile = folder_.file("none/trace");
    EXPECT_EQ(complaintOf([this] { run(); }), options_.traceFile + ": No such file or directory");
    EXPECT_FALSE(exists(options_.controlPath));
    EXPECT_FALSE(exists(options_.link));
}

TEST_F(ProgramTest, ReadsItsFilesBeforeItTouchesAnythingElse) {
    options_.controlPath = folder_.file("none/control");
    options_.scenarioFile = folder_.write("x.scenario", "0 press\n");
    EXPECT_EQ(complaintOf([this] { run(); }), options_.scenarioFile + ":1: use: press A N");
}

}  // namespace
}  // namespace zolt_sim
