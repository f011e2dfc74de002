// The program zolt-sim as a user starts it.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <spawn.h>
#include <sys/wait.h>

#include <array>
#include <csignal>

#include "apps/zolt-sim/text_file.h"
#include "lib/os/descriptor.h"
#include "tests/unit/zolt-sim/support.h"

namespace zolt_sim {
namespace {

using test::Host;
using test::waitUntil;

class Program {
  public:
    Program(const test::Folder& folder, std::vector<std::string> arguments)
        : output_(folder.file("stdout")), error_(folder.file("stderr")) {
        std::array<int, 2> input{};
        if (::pipe2(input.data(), O_CLOEXEC) != 0) {
            throw std::runtime_error("pipe2 failed");
        }
        const zolt_os::Descriptor inputReader(input[0]);
        inputWriter_ = zolt_os::Descriptor(input[1]);
        posix_spawn_file_actions_t actions;
        ::posix_spawn_file_actions_init(&actions);
        ::posix_spawn_file_actions_adddup2(&actions, inputReader.get(), 0);
        const int flags = O_WRONLY | O_CREAT | O_TRUNC;
        ::posix_spawn_file_actions_addopen(&actions, 1, output_.c_str(), flags, 0600);
        ::posix_spawn_file_actions_addopen(&actions, 2, error_.c_str(), flags, 0600);
        arguments.insert(arguments.begin(), ZOLT_SIM_PROGRAM);
        std::vector<char*> pointers;
        for (std::string& argument : arguments) {
            pointers.push_back(argument.data());
        }
        pointers.push_back(nullptr);
        if (::posix_spawn(&process_, ZOLT_SIM_PROGRAM, &actions, nullptr, pointers.data(),
                          environ) != 0) {
            process_ = -1;
        }
        ::posix_spawn_file_actions_destroy(&actions);
    }
    ~Program() {
        if (process_ > 0) {
            ::kill(process_, SIGKILL);
            ::waitpid(process_, nullptr, 0);
        }
    }
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    void type(const std::string& text) {
        ASSERT_EQ(::write(inputWriter_.get(), text.data(), text.size()),
                  static_cast<ssize_t>(text.size()));
    }
    void endInput() { const zolt_os::Descriptor ended = std::move(inputWriter_); }
    void signal(int number) const { ::kill(process_, number); }
    std::string output() const { return readTextFile(output_); }
    std::string error() const { return readTextFile(error_); }

    /// Waits for the end and returns the exit status. Returns -1 if the program does not
    /// end, or if a signal ends it.
    int exitStatus() {
        int status = 0;
        if (process_ <= 0 ||
            !waitUntil([&] { return ::waitpid(process_, &status, WNOHANG) == process_; })) {
            return -1;
        }
        process_ = -1;
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

  private:
    std::string output_;
    std::string error_;
    zolt_os::Descriptor inputWriter_;
    pid_t process_ = -1;
};

class MainTest : public ::testing::Test {
  protected:
    bool running() const {
        return waitUntil([this] { return std::filesystem::exists(link_); });
    }
    bool gone(const std::string& path) const {
        return !std::filesystem::exists(std::filesystem::symlink_status(path));
    }

    test::Folder folder_;
    std::string link_ = folder_.file("ttyUSB0");
    std::string bus_ = folder_.write("x.bus", "3 digital-input\n5 digital-output\n");
};

TEST_F(MainTest, AnswersUntilItIsTerminated) {
    const std::string control = folder_.file("control");
    const std::string traceFile = folder_.file("trace");
    Program program(folder_, {"--bus", bus_, "--link", link_, "--baud", "0", "--control", control,
                              "--trace-file", traceFile});
    ASSERT_TRUE(running());
    {
        Host host(link_);
        EXPECT_EQ(host.ask({0x20, 3, 2}), (Bytes{0x21, 3, 0, 0}));
        EXPECT_EQ(host.ask({0x10, 5, 2, 0xFF, 0xFB}), Bytes{0x06});
    }
    EXPECT_TRUE(waitUntil([&] {
        return readTextFile(traceFile).find(" bus>  04 | 21 03 00 00\n") != std::string::npos;
    }));
    EXPECT_TRUE(waitUntil([&] {
        return program.output().find(" card 5 digital-output: FF FB\n") != std::string::npos;
    }));
    EXPECT_EQ(program.output().find("20 03 02"), std::string::npos);
    program.signal(SIGTERM);
    EXPECT_EQ(program.exitStatus(), 0);
    EXPECT_TRUE(gone(link_));
    EXPECT_TRUE(gone(control));
    EXPECT_EQ(program.error(), "");
}

TEST_F(MainTest, TakesControlsFromItsInputAndQuits) {
    Program program(folder_, {"--bus", bus_, "--link", link_, "--trace", "none"});
    program.type("press 3 6\nshow 3\nnonsense\nquit\n");
    EXPECT_EQ(program.exitStatus(), 0);
    EXPECT_EQ(program.output(),
              "ok\n3 digital-input: 40 00\nok\n"
              "error: unknown control \"nonsense\" (help lists the controls)\nok\n");
    EXPECT_TRUE(gone(link_));
}

TEST_F(MainTest, GoesOnAfterTheEndOfItsInput) {
    Program program(folder_, {"--bus", bus_, "--link", link_, "--baud=0"});
    program.endInput();
    ASSERT_TRUE(running());
    EXPECT_EQ(Host(link_).ask({0x30}).size(), 17U);
    program.signal(SIGINT);
    EXPECT_EQ(program.exitStatus(), 0);
    EXPECT_TRUE(gone(link_));
}

TEST_F(MainTest, IgnoresAnInterruptThatWasIgnoredBefore) {
    std::signal(SIGINT, SIG_IGN);
    Program program(folder_, {"--bus", bus_, "--link", link_, "--baud", "0"});
    std::signal(SIGINT, SIG_DFL);
    ASSERT_TRUE(running());
    program.signal(SIGINT);
    EXPECT_EQ(Host(link_).ask({0x30}).size(), 17U);
    program.type("quit\n");
    EXPECT_EQ(program.exitStatus(), 0);
}

TEST_F(MainTest, ReportsAWrongCommandLine) {
    Program program(folder_, {"--bus", bus_});
    EXPECT_EQ(program.exitStatus(), 2);
    EXPECT_EQ(program.error(),
              "zolt-sim: --link is required (zolt-sim --help lists the options)\n");
}

TEST_F(MainTest, SaysWhyItCannotStart) {
    const std::string badBus = folder_.write("bad.bus", "\n3 relay\n");
    {
        Program program(folder_, {"--bus", badBus, "--link", link_});
        EXPECT_EQ(program.exitStatus(), 1);
        EXPECT_EQ(
            program.error().find("zolt-sim: " + badBus + ":2: unknown kind of card \"relay\""), 0U)
            << program.error();
    }
    const std::string badScenario = folder_.write("bad.scenario", "0 press\n");
    {
        Program program(folder_, {"--bus", bus_, "--link", link_, "--scenario", badScenario});
        EXPECT_EQ(program.exitStatus(), 1);
        EXPECT_EQ(program.error(), "zolt-sim: " + badScenario + ":1: use: press A N\n");
    }
    const std::string taken = folder_.write("taken", "precious");
    {
        const std::string control = folder_.file("control");
        Program program(folder_, {"--bus", bus_, "--link", taken, "--control", control});
        EXPECT_EQ(program.exitStatus(), 1);
        EXPECT_EQ(
            program.error(),
            "zolt-sim: " + taken + ": exists and is not a symbolic link, so it is left as it is\n");
        EXPECT_TRUE(gone(control));
    }
    EXPECT_TRUE(gone(link_));
}

TEST_F(MainTest, PrintsItsVersionAndOptions) {
    {
        Program program(folder_, {"--version"});
        EXPECT_EQ(program.exitStatus(), 0);
        EXPECT_EQ(program.output().find("zolt-sim "), 0U);
    }
    Program program(folder_, {"--help"});
    EXPECT_EQ(program.exitStatus(), 0);
    EXPECT_NE(program.output().find("Use: zolt-sim --bus FILE --link PATH [OPTION...]\n"),
              std::string::npos);
}

}  // namespace
}  // namespace zolt_sim
