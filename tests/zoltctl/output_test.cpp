// Where the output goes, and when it cannot go there.
#include <fcntl.h>
#include <unistd.h>

#include <array>

#include "tests/support/process/child_process.h"
#include "tests/zoltctl/fake_test.h"

namespace {

using namespace ctl_test;

class Output : public FakeTest {
  protected:
    static Outcome runInto(int output, const std::vector<std::string>& arguments) {
        return ctl_test::run(arguments, {.environment = {"ZOLT_LINE_END=crlf"}, .output = output});
    }

    static std::array<zolt_os::Descriptor, 2> makePipe() {
        std::array<int, 2> ends{};
        EXPECT_EQ(::pipe2(ends.data(), O_CLOEXEC), 0);
        return {zolt_os::Descriptor(ends[0]), zolt_os::Descriptor(ends[1])};
    }

    // Fills a pipe, so that who writes into it has to wait for its reader.
    static void fill(const zolt_os::Descriptor& writeEnd) {
        ::fcntl(writeEnd.get(), F_SETFL, O_NONBLOCK);
        const std::string bytes(4096, 'x');
        while (::write(writeEnd.get(), bytes.data(), bytes.size()) > 0) {
        }
        ::fcntl(writeEnd.get(), F_SETFL, 0);
    }

    static constexpr const char* kNobodyReads =
        "zoltctl: cannot write the output: its reader takes nothing; the last lines are lost";
    const Replies version_{{"DRVVER\r\n", reply({"CIA: DRIVER VERSION 1.20"})}};
};

TEST_F(Output, AFullDiskIsReported) {
    const zolt_os::Descriptor full(::open("/dev/full", O_WRONLY | O_CLOEXEC));
    const std::string error = "zoltctl: cannot write the output: No space left on device";
    for (const std::vector<std::string>& arguments :
         {std::vector<std::string>{"version"}, {"--json", "version"}, {"raw", "cae", "DRVVER"}}) {
        const FakeTcpPort cae(kDefaultCae, console(version_));
        expectOutcome(runInto(full.get(), arguments), 8, "", error);
    }
    expectOutcome(runInto(full.get(), {"--help"}), 8, "", error);
    expectOutcome(runInto(full.get(), {"--version"}), 8, "", error);

    const FakeTcpPort mon(kDefaultMon, [](FakeConnection& client) {
        client.send(kMonBanner);
        client.send(item("a3b0d40"));
        client.keepSilent();
    });
    expectOutcome(runInto(full.get(), {"monitor"}), 8, "", error);
}

TEST_F(Output, AClosedStandardOutputIsReported) {
    const FakeTcpPort cae(kDefaultCae, console(version_));
    expectOutcome(runInto(support::StandardStreams::kClosed, {"version"}), 8, "",
                  "zoltctl: cannot write the output: Bad file descriptor");
}

// As "zoltctl monitor | head -1" does.
TEST_F(Output, AReaderThatLeavesEndsItQuietly) {
    bool left = false;
    {
        const FakeTcpPort mon(kDefaultMon, [&](FakeConnection& client) {
            client.send(kMonBanner);
            client.send(item("a3b0d40"));
            client.expect("");
            left = true;
        });
        ZoltctlProcess process({"monitor"}, {.environment = {"ZOLT_LINE_END=crlf"}});
        std::string first;
        ASSERT_TRUE(support::waitUntil([&] {
            first += process.readNewOutput();
            return first.ends_with("\n");
        }));
        EXPECT_TRUE(first.ends_with("a3b0d40\n")) << first;
        process.closeOutput();
        const auto outcome = process.waitForEnd();
        EXPECT_EQ(outcome.end, "status 141");
        EXPECT_EQ(outcome.errors, "");
    }
    EXPECT_TRUE(left);
}

TEST_F(Output, APipeThatIsClosedBeforeAResultEndsItQuietly) {
    auto [readEnd, writeEnd] = makePipe();
    readEnd.reset();
    const FakeTcpPort cae(kDefaultCae, console(version_));
    const auto outcome = runInto(writeEnd.get(), {"version"});
    EXPECT_EQ(outcome.end, "status 141");
    EXPECT_EQ(outcome.errors, "");
}

// Or the console would stay taken for as long as its reader likes.
TEST_F(Output, AReaderThatTakesNothingIsGivenUp) {
    const auto [readEnd, writeEnd] = makePipe();
    fill(writeEnd);
    for (const std::vector<std::string>& arguments :
         {std::vector<std::string>{"version"}, {"--json", "version"}, {"raw", "cae", "DRVVER"}}) {
        const FakeTcpPort cae(kDefaultCae, console(version_));
        expectOutcome(runInto(writeEnd.get(), joined({"--timeout", "0.3"}, arguments)), 8, "",
                      kNobodyReads);
    }
}

TEST_F(Output, AConsoleWhoseReaderStopsIsLeft) {
    const auto [readEnd, writeEnd] = makePipe();
    bool left = false;
    {
        const FakeTcpPort cae(kDefaultCae, [&](FakeConnection& client) {
            client.send(kConsoleBanner);
            while (!client.receive().empty()) {
                client.send(reply(std::vector<std::string>(70, std::string(60, 'x'))));
            }
            left = true;
        });
        std::string input;
        for (int i = 0; i < 200; ++i) input += "HELP\n";
        expectOutcome(
            ctl_test::run(
                {"console", "--timeout", "0.5"},
                {.environment = {"ZOLT_LINE_END=crlf"}, .input = input, .output = writeEnd.get()}),
            8, "", kNobodyReads);
    }
    EXPECT_TRUE(left);
}

}  // namespace
