// Options, environment, configuration file and defaults, in this order.
#include <filesystem>

#include "tests/support/process/daemon_settings.h"
#include "tests/zoltctl/fake_test.h"

namespace {

using namespace ctl_test;

const std::vector<std::string> kDrvver{"CIA: DRIVER VERSION 1.20"};

// Consoles that tell by their version who was asked.
FakeTcpPort::Script consoleOf(const std::string& version) {
    return console({{"DRVVER\r\n", reply({"CIA: DRIVER VERSION " + version})}});
}

constexpr const char* kByDefault = "1.01";
constexpr const char* kByOption = "1.02";
constexpr const char* kByVariable = "1.03";
constexpr const char* kByConfiguration = "1.04";
constexpr const char* kByOtherConfiguration = "1.05";

std::string configurationFor(int cae, const std::string& inSeparator = "\\r\\n",
                             const std::string& outSeparator = "\\r\\n") {
    support::DaemonSettings settings;
    settings.cae = {cae, inSeparator, outSeparator};
    return settings.toXml();
}

class SettingsOrder : public FakeTest {
  protected:
    void SetUp() override {
        FakeTest::SetUp();
        support::writeFile(file_, configurationFor(4104));
    }
    void expectAsked(const std::string& version, const std::vector<std::string>& arguments,
                     const std::vector<std::string>& environment) {
        SCOPED_TRACE(version);
        const FakeTcpPort standard(kDefaultCae, consoleOf(kByDefault));
        const FakeTcpPort option(4101, consoleOf(kByOption));
        const FakeTcpPort variable(4102, consoleOf(kByVariable));
        const FakeTcpPort configured(4103, consoleOf(kByConfiguration));
        const FakeTcpPort other(4104, consoleOf(kByOtherConfiguration));
        expectOutcome(ctl_test::run(joined(arguments, {"version"}), {.environment = environment}),
                      0, "driver version " + version + "\n");
    }

    const std::string file_ = support::workFolder() / "other.xml";
};

TEST_F(SettingsOrder, OptionThenEnvironmentThenConfigurationThenDefault) {
    expectAsked(kByDefault, {}, {});
    support::writeFile(support::kConfigurationFile, configurationFor(4103));
    expectAsked(kByConfiguration, {}, {});
    expectAsked(kByOtherConfiguration, {"--config", file_}, {});
    expectAsked(kByOtherConfiguration, {}, {"ZOLT_CONFIG=" + file_});
    expectAsked(kByConfiguration, {"--config", support::kConfigurationFile},
                {"ZOLT_CONFIG=" + file_});
    expectAsked(kByVariable, {}, {"ZOLT_CAE_PORT=4102"});
    expectAsked(kByVariable, {"--config=" + file_}, {"ZOLT_CAE_PORT=4102"});
    expectAsked(kByOption, {"--cae-port", "4101"}, {"ZOLT_CAE_PORT=4102"});
}

TEST_F(SettingsOrder, TheHost) {
    const FakeTcpPort cae(kDefaultCae, {consoleOf("1.01"), consoleOf("1.02")});
    expectOutcome(ctl_test::run({"version"}, {.environment = {"ZOLT_HOST=localhost"}}), 0,
                  "driver version 1.01\n");
    expectOutcome(
        ctl_test::run({"--host", "127.0.0.1", "version"}, {.environment = {"ZOLT_HOST=192.0.2.1"}}),
        0, "driver version 1.02\n");
    expectOutcome(ctl_test::run({"version"}, {.environment = {"ZOLT_HOST=192.0.2.1"}}), 3, "",
                  "zoltctl: no daemon at console 192.0.2.1:4001: Network is unreachable");
}

TEST_F(SettingsOrder, TheTimeout) {
    const FakeTcpPort cae(kDefaultCae, std::vector<FakeTcpPort::Script>{});
    const std::string error =
        "zoltctl: console 127.0.0.1:4001: no banner came; another client holds the port";
    expectOutcome(ctl_test::run({"version"}, {.environment = {"ZOLT_TIMEOUT=0.2"}}), 4, "", error);
    expectOutcome(
        ctl_test::run({"--timeout", ".2", "version"}, {.environment = {"ZOLT_TIMEOUT=1000"}}), 4,
        "", error);
}

class Configuration : public FakeTest {};

TEST_F(Configuration, AFileThatIsNamedAndCannotBeUsed) {
    const std::string broken = support::workFolder() / "broken.xml";
    support::writeFile(broken, "<ZOLTConfig><Interfaces>");
    const auto outcome = run({"--config", broken, "version"});
    EXPECT_EQ(outcome.end, "status 8");
    EXPECT_EQ(outcome.output, "");
    EXPECT_TRUE(
        outcome.errors.starts_with("zoltctl: cannot use the configuration " + broken + ": "))
        << outcome.errors;
    EXPECT_EQ(support::splitLines(outcome.errors).size(), 1U);
    expectOutcome(run({"--config", "/nowhere/zolt.xml", "version"}), 8, "",
                  "zoltctl: cannot use the configuration /nowhere/zolt.xml: No such file or "
                  "directory");
    expectOutcome(ctl_test::run({"version"}, {.environment = {"ZOLT_CONFIG=/nowhere.xml"}}), 8, "",
                  "zoltctl: cannot use the configuration /nowhere.xml: No such file or directory");
}

TEST_F(Configuration, APortThatItDoesNotNameIsAskedFor) {
    support::writeFile(support::kConfigurationFile, "<ZOLTConfig/>");
    expectOutcome(
        run({"version"}), 8, "",
        "zoltctl: no port number is known for console: the configuration gives none; give it "
        "as an option");
}

class LineEnds : public FakeTest {
  protected:
    // The line ends as the words name them, and as they are.
    struct Row {
        std::string word;
        std::string bytes;
    };
    const std::vector<Row> rows_{
        {"crlf", "\r\n"}, {"lf", "\n"}, {"cr", "\r"}, {";", ";"}, {"\\r\\n;", "\r\n;"}};

    // A console whose daemon is configured for this line end.
    static FakeTcpPort::Script daemonWith(const std::string& inSeparator,
                                          const std::string& outSeparator, std::string& asked) {
        return [inSeparator, outSeparator, &asked](FakeConnection& client) {
            client.send(kConsoleBanner);
            for (auto line = client.receive(); !line.empty(); line = client.receive()) {
                asked += line;
                client.send(line == "DRVVER" + inSeparator ? reply(kDrvver, outSeparator)
                            : line == "SPEED=50" + inSeparator
                                ? reply({"CIA: SPEED IS SET to 50%"}, outSeparator)
                                : unknownCommand(outSeparator));
            }
        };
    }
};

TEST_F(LineEnds, AsTheOptionTheEnvironmentOrTheConfigurationSays) {
    for (const Row& row : rows_) {
        SCOPED_TRACE(row.word);
        const FakeTcpPort cae(
            kDefaultCae,
            std::vector<FakeTcpPort::Script>(3, console({{"DRVVER" + row.bytes, reply(kDrvver)}})));
        expectOutcome(ctl_test::run({"--line-end", row.word, "version"},
                                    {.environment = {"ZOLT_LINE_END=auto"}}),
                      0, kVersionText);
        expectOutcome(ctl_test::run({"version"}, {.environment = {"ZOLT_LINE_END=" + row.word}}), 0,
                      kVersionText);
    }
    for (const std::string& separator : std::vector<std::string>{"\\r\\n", "\\n", "\\r", ";"}) {
        SCOPED_TRACE(separator);
        support::writeFile(support::kConfigurationFile,
                           configurationFor(kDefaultCae, separator, separator));
        const std::string bytes = separator == "\\r\\n" ? "\r\n"
                                  : separator == "\\n"  ? "\n"
                                  : separator == "\\r"  ? "\r"
                                                        : ";";
        const FakeTcpPort cae(kDefaultCae, console({{"DRVVER" + bytes, reply(kDrvver, bytes)}}));
        expectOutcome(ctl_test::run({"version"}), 0, kVersionText);
    }
}

TEST_F(LineEnds, AutoFindsOutWhichTheDaemonTakes) {
    struct Case {
        std::string in;
        std::string out;
        std::string asked;
    };
    const std::vector<Case> cases{
        {"\r\n", "\r\n", "DRVVER\r\nSPEED=50\r\n"},
        {"\n", "\r\n", "DRVVER\r\nDRVVER\nSPEED=50\n"},
        {"\r", "\r\n", "DRVVER\r\nDRVVER\nDRVVER\rSPEED=50\r"},
        {"\n", "\n", "DRVVER\r\nDRVVER\nSPEED=50\n"},
        {"\r\n", "\n", "DRVVER\r\nSPEED=50\r\n"},
        {"\r\n", "\r", "DRVVER\r\nSPEED=50\r\n"},
    };
    for (const Case& row : cases) {
        SCOPED_TRACE(row.asked);
        std::string asked;
        {
            const FakeTcpPort cae(kDefaultCae, daemonWith(row.in, row.out, asked));
            expectOutcome(ctl_test::run({"speed", "50"}), 0, "speed is 50%\n");
        }
        EXPECT_EQ(asked, row.asked);
    }
}

TEST_F(LineEnds, AnEmptyOneIsNone) {
    const FakeTcpPort cae(
        kDefaultCae, std::vector<FakeTcpPort::Script>(2, console({{"DRVVER", reply(kDrvver)}})));
    expectOutcome(run({"--line-end=", "--timeout", "10", "version"}), 0, kVersionText);
    expectOutcome(run({"version", "--line-end", ""}), 0, kVersionText);
}

TEST_F(LineEnds, ADaemonThatTakesNoneOfThemIsReported) {
    std::string asked;
    const FakeTcpPort cae(kDefaultCae, daemonWith(";", "\r\n", asked));
    expectOutcome(ctl_test::run({"--line-end", "auto", "version"}), 1, "",
                  "zoltctl: console 127.0.0.1:4001: the daemon takes none of CR LF, LF and CR as "
                  "the end of a line; name its InpSeparator with --line-end");
}

TEST_F(LineEnds, AWrongOneIsGuessed) {
    const FakeTcpPort cae(kDefaultCae, console({}));
    expectOutcome(run({"version"}), 1, "",
                  "zoltctl: the daemon does not know DRVVER (CIE: UNKNOWN COMMAND), or its "
                  "InpSeparator is not what --line-end says");
}

}  // namespace
