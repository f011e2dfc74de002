// watch and monitor: lines as they come, until something ends them.
#include <signal.h>

#include <algorithm>
#include <atomic>

#include "tests/zoltctl/commands_test.h"

namespace {

using namespace ctl_test;

// Prints with every digit of the time as 0.
std::string withoutTime(std::string output, std::size_t column) {
    std::size_t start = 0;
    while (start < output.size()) {
        const auto end = std::min(output.find('\n', start), output.size());
        const auto stop = std::min(start + column, end);
        std::replace_if(
            output.begin() + static_cast<std::ptrdiff_t>(start),
            output.begin() + static_cast<std::ptrdiff_t>(stop),
            [](char c) { return c >= '0' && c <= '9'; }, '0');
        start = end + 1;
    }
    return output;
}

constexpr std::size_t kTextTime = std::string_view("2026-11-21 14:03:07.123").size();
constexpr std::size_t kJsonTime =
    std::string_view(R"({"time":"2026-11-21T14:03:07.123+00:00")").size();

class Listening : public CommandTest {
  protected:
    static FakeTcpPort::Script showing(const std::string& banner, const std::string& bytes) {
        return [=](FakeConnection& client) {
            client.send(banner + bytes);
            EXPECT_EQ(client.receiveRest(), "");
        };
    }

    const Dialogue names_{{"DISCOVER", cardList("DISCOVER LIST:")}};
    const std::string changes_ =
        item("a3b0d40") + item("a8b0d5A") + item("aFb5d01") + item("a1b0dFF") + item("a3b0d00");
};

TEST_F(Listening, WatchShowsTimeAddressNameBlockAndValue) {
    const FakeTcpPort cae(kDefaultCae, {playing(names_), playing(names_)});
    const FakeTcpPort io(kDefaultIo, {showing(kIoBanner, changes_), showing(kIoBanner, changes_)});
    auto outcome = run({"watch", "--count", "5"});
    outcome.output = withoutTime(outcome.output, kTextTime);
    expectOutcome(outcome, 0,
                  "0000-00-00 00:00:00.000  3  16 channel DIGITAL INPUT  block 0  40\n"
                  "0000-00-00 00:00:00.000  8  KEYMX and ROTE CONTROLLER  block 0  5A\n"
                  "0000-00-00 00:00:00.000  F  6 channel ANALOGUE INPUT  block 5  01\n"
                  "0000-00-00 00:00:00.000  1  block 0  FF\n"
                  "0000-00-00 00:00:00.000  3  16 channel DIGITAL INPUT  block 0  00\n");
    outcome = run({"watch", "--json", "--count=2"});
    outcome.output = withoutTime(outcome.output, kJsonTime);
    expectOutcome(
        outcome, 0,
        R"({"time":"0000-00-00T00:00:00.000+00:00","address":"3","kind":"16 channel DIGITAL INPUT","block":0,"value":64,"hex":"40"})"
        "\n"
        R"({"time":"0000-00-00T00:00:00.000+00:00","address":"8","kind":"KEYMX and ROTE CONTROLLER","block":0,"value":90,"hex":"5A"})"
        "\n");
}

TEST_F(Listening, WatchWithoutNames) {
    const FakeTcpPort io(kDefaultIo, {showing(kIoBanner, changes_), showing(kIoBanner, changes_)});
    auto outcome = run({"watch", "--no-names", "--count", "1"});
    outcome.output = withoutTime(outcome.output, kTextTime);
    expectOutcome(outcome, 0, "0000-00-00 00:00:00.000  3  block 0  40\n");
    outcome = run({"watch", "--no-names", "--count", "1", "--json"});
    outcome.output = withoutTime(outcome.output, kJsonTime);
    expectOutcome(outcome, 0,
                  R"({"time":"0000-00-00T00:00:00.000+00:00","address":"3","kind":null,"block":0,)"
                  R"("value":64,"hex":"40"})"
                  "\n");
}

TEST_F(Listening, AHeldConsoleCostsTheNamesAndANote) {
    const FakeTcpPort cae(kDefaultCae, std::vector<FakeTcpPort::Script>{});
    const FakeTcpPort io(kDefaultIo, showing(kIoBanner, changes_));
    auto outcome = run({"watch", "--count", "1", "--timeout", "0.5"});
    outcome.output = withoutTime(outcome.output, kTextTime);
    expectOutcome(outcome, 0, "0000-00-00 00:00:00.000  3  block 0  40\n",
                  "zoltctl: note: no card names: console 127.0.0.1:4001: no banner came; another "
                  "client holds the port");
}

TEST_F(Listening, MonitorPrintsWhatThePortShows) {
    const std::string shown =
        item("a3b0d40") + item("a5b1dFB") + item("a5b1dFF\r\nnon\x1Bsense") + item("a3b0d00");
    const FakeTcpPort mon(kDefaultMon, {showing(kMonBanner, shown), showing(kMonBanner, shown)});
    auto outcome = run({"monitor", "--count", "5"});
    outcome.output = withoutTime(outcome.output, kTextTime);
    expectOutcome(outcome, 0,
                  "0000-00-00 00:00:00.000  a3b0d40\n"
                  "0000-00-00 00:00:00.000  a5b1dFB\n"
                  "0000-00-00 00:00:00.000  a5b1dFF\n"
                  "0000-00-00 00:00:00.000  non\\x1Bsense\n"
                  "0000-00-00 00:00:00.000  a3b0d00\n");
    outcome = run({"--json", "monitor", "--count", "1"});
    outcome.output = withoutTime(outcome.output, kJsonTime);
    expectOutcome(outcome, 0,
                  R"({"time":"0000-00-00T00:00:00.000+00:00","line":"a3b0d40"})"
                  "\n");
}

TEST_F(Listening, EndsAfterTheTimeGiven) {
    const FakeTcpPort io(kDefaultIo, showing(kIoBanner, ""));
    const FakeTcpPort mon(kDefaultMon, showing(kMonBanner, ""));
    expectOutcome(run({"watch", "--no-names", "--for", "0.2"}), 0, "");
    expectOutcome(run({"monitor", "--for=.2"}), 0, "");
}

TEST_F(Listening, ASignalEndsItWithAllLinesWritten) {
    struct Row {
        int signal;
        const char* end;
    };
    constexpr int kLines = 2000;
    std::string many;
    for (int i = 0; i < kLines; ++i) many += item("a3b0d40");
    for (const Row& row : {Row{SIGINT, "status 130"}, Row{SIGTERM, "status 143"}}) {
        SCOPED_TRACE(row.end);
        const FakeTcpPort io(kDefaultIo, showing(kIoBanner, many));
        ZoltctlProcess process({"watch", "--no-names"});
        std::string output;
        ASSERT_TRUE(support::waitUntil([&] {
            output += process.readNewOutput();
            return !output.empty();
        }));
        process.signal(row.signal);
        const auto outcome = process.waitForEnd();
        output += outcome.output;
        EXPECT_EQ(outcome.end, row.end);
        EXPECT_EQ(outcome.errors, "");
        EXPECT_TRUE(output.ends_with("  3  block 0  40\n"));
    }
}

// It is the user then who ends the wait for the names, not somebody on the console.
TEST_F(Listening, ASignalWhileNamesAreAskedNeedsNoNote) {
    std::atomic<bool> asked = false;
    const FakeTcpPort cae(kDefaultCae, [&](FakeConnection& client) {
        asked = true;
        client.keepSilent();
    });
    const FakeTcpPort io(kDefaultIo, showing(kIoBanner, ""));
    ZoltctlProcess process({"watch"});
    ASSERT_TRUE(support::waitUntil([&] { return asked.load(); }));
    process.signal(SIGINT);
    const auto outcome = process.waitForEnd();
    EXPECT_EQ(outcome.end, "status 130");
    EXPECT_EQ(outcome.output, "");
    EXPECT_EQ(outcome.errors, "");
}

TEST_F(Listening, TheEndOfTheDaemonIsReportedAfterTheLastLine) {
    for (const bool half : {false, true}) {
        const FakeTcpPort io(kDefaultIo, [&](FakeConnection& client) {
            client.send(kIoBanner + item("a3b0d40") + (half ? "a3b" : ""));
        });
        auto outcome = run({"watch", "--no-names"});
        outcome.output = withoutTime(outcome.output, kTextTime);
        expectOutcome(
            outcome, 5, "0000-00-00 00:00:00.000  3  block 0  40\n",
            "zoltctl: IO 127.0.0.1:4002: the connection ended while its lines were awaited");
    }
}

TEST_F(Listening, ALineThatIsNoChangeIsReportedAfterTheLastChange) {
    struct Row {
        std::string sent;
        std::string quoted;
    };
    for (const Row& row : std::vector<Row>{{item("a3b0d4"), "\"a3b0d4\""},
                                           {item("a3b0d400"), "\"a3b0d400\""},
                                           {item("agb0d40"), "\"agb0d40\""},
                                           {item("\x01\xFF rubbish"), "\"\\x01\\xFF rubbish\""}}) {
        SCOPED_TRACE(row.quoted);
        const FakeTcpPort io(kDefaultIo, [&](FakeConnection& client) {
            client.send(kIoBanner + item("a3b0d40") + row.sent);
            client.hold();
        });
        auto outcome = run({"watch", "--no-names"});
        outcome.output = withoutTime(outcome.output, kTextTime);
        expectOutcome(outcome, 7, "0000-00-00 00:00:00.000  3  block 0  40\n",
                      "zoltctl: what came on the IO port does not look like zolt: " + row.quoted +
                          " is not an input change");
    }
}

TEST_F(Listening, AnEndlessLineIsGivenUp) {
    for (const std::string& command : std::vector<std::string>{"watch", "monitor"}) {
        const auto flooding = [](const char* banner) {
            return [banner](FakeConnection& client) {
                client.send(banner);
                client.flood(std::string(65536, 'x'));
            };
        };
        const FakeTcpPort io(kDefaultIo, flooding(kIoBanner));
        const FakeTcpPort mon(kDefaultMon, flooding(kMonBanner));
        const auto outcome = ctl_test::run({command, "--timeout", "1"},
                                           {.environment = {"ASAN_OPTIONS=quarantine_size_mb=16"}});
        EXPECT_EQ(outcome.end, "status 7");
        EXPECT_EQ(outcome.output, "");
        EXPECT_LT(outcome.errors.size(), 1000U);
    }
    EXPECT_LT(largestChildKilobytes(), 200'000);
}

TEST_F(Listening, LinesInSingleBytesAndWithoutCarriageReturns) {
    const FakeTcpPort io(kDefaultIo, [](FakeConnection& client) {
        client.send(kIoBanner);
        client.sendSingly(item("a3b0d40"));
        client.send("a3b0d41\r\na3b0d42\r\n");
        EXPECT_EQ(client.receiveRest(), "");
    });
    auto outcome = run({"watch", "--no-names", "--count", "3"});
    outcome.output = withoutTime(outcome.output, kTextTime);
    expectOutcome(outcome, 0,
                  "0000-00-00 00:00:00.000  3  block 0  40\n"
                  "0000-00-00 00:00:00.000  3  block 0  41\n"
                  "0000-00-00 00:00:00.000  3  block 0  42\n");
}

}  // namespace
