#include "apps/zolt-sim/options.h"

#include <gtest/gtest.h>

#include "apps/zolt-sim/error.h"

namespace zolt_sim {
namespace {

/// The message of the Error, which must have the status of a wrong use. Empty if the
/// arguments are accepted.
std::string complaintAbout(const std::vector<std::string>& arguments) {
    try {
        parseOptions(arguments);
    } catch (const Error& error) {
        EXPECT_EQ(error.status(), ExitStatus::kWrongUse);
        const std::string hint = " (zolt-sim --help lists the options)";
        const std::string message = error.what();
        EXPECT_TRUE(message.ends_with(hint)) << message;
        return message.substr(0, message.size() - hint.size());
    }
    return "";
}

/// The complaint about valid required options with `arguments` after them.
std::string complaintAboutOther(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), {"--bus", "a.bus", "--link", "/dev/ttyUSB0"});
    return complaintAbout(arguments);
}

TEST(Options, HaveDefaults) {
    const Options options = parseOptions({"--bus", "a.bus", "--link", "/dev/ttyUSB0"});
    EXPECT_EQ(options.busFile, "a.bus");
    EXPECT_EQ(options.link, "/dev/ttyUSB0");
    EXPECT_EQ(options.baud, 460800U);
    EXPECT_EQ(options.filter, TraceFilter::kCommands);
    EXPECT_EQ(options.controlPath, "");
    EXPECT_EQ(options.traceFile, "");
    EXPECT_EQ(options.scenarioFile, "");
    EXPECT_EQ(options.text, "");
}

TEST(Options, TakeTheirValuesApartAndAttached) {
    const Options options = parseOptions({"--bus=a.bus", "--link=l", "--baud=0", "--control", "c",
                                          "--trace", "all", "--trace-file=t", "--scenario", "s"});
    EXPECT_EQ(options.busFile, "a.bus");
    EXPECT_EQ(options.link, "l");
    EXPECT_EQ(options.baud, 0U);
    EXPECT_EQ(options.controlPath, "c");
    EXPECT_EQ(options.filter, TraceFilter::kAll);
    EXPECT_EQ(options.traceFile, "t");
    EXPECT_EQ(options.scenarioFile, "s");
}

TEST(Options, GivenTwiceHaveTheirLastValue) {
    const Options options =
        parseOptions({"--bus", "a", "--link", "l", "--bus", "b", "--baud=1", "--baud=9600"});
    EXPECT_EQ(options.busFile, "b");
    EXPECT_EQ(options.baud, 9600U);
}

TEST(Options, HelpAndVersionNeedNoOthers) {
    EXPECT_EQ(parseOptions({"--version"}).text, "zolt-sim " ZOLT_SIM_VERSION "\n");
    const std::string help = parseOptions({"--help"}).text;
    EXPECT_NE(help.find("Use: zolt-sim --bus FILE --link PATH [OPTION...]\n"), std::string::npos)
        << help;
    for (const char* option :
         {"--bus FILE", "--link PATH", "--baud N", "--control PATH", "--trace WHAT",
          "--trace-file PATH", "--scenario FILE", "--help", "--version"}) {
        EXPECT_NE(help.find(std::string("\n  ") + option + " "), std::string::npos)
            << option << "\n"
            << help;
    }
}

TEST(Options, ThatAreMissingAreNamed) {
    EXPECT_EQ(complaintAbout({}), "--bus is required");
    EXPECT_EQ(complaintAbout({"--bus", "a"}), "--link is required");
}

TEST(Options, ThatAreUnknownAreNamed) {
    EXPECT_EQ(complaintAboutOther({"--speed", "1"}), "unknown option \"--speed\"");
    EXPECT_EQ(complaintAboutOther({"bus"}), "unexpected argument \"bus\"");
}

TEST(Options, NeedValuesThatMakeSense) {
    EXPECT_EQ(complaintAbout({"--bus"}), "--bus: 1 required FILE missing");
    EXPECT_EQ(complaintAboutOther({"--control="}), "--control: the value is empty");
    EXPECT_EQ(complaintAboutOther({"--trace-file=", "--baud=0"}),
              "--trace-file: the value is empty");
    EXPECT_EQ(complaintAboutOther({"--baud=", "x"}), "unexpected argument \"x\"");
    EXPECT_EQ(complaintAboutOther({"--speed="}), "unknown option \"--speed=\"");
    EXPECT_EQ(complaintAboutOther({"--control", ""}), "--control: the value is empty");
    EXPECT_EQ(complaintAboutOther({"--baud", "fast"}),
              "--baud: \"fast\" is not a decimal number from 0 to 100000000");
    EXPECT_EQ(complaintAboutOther({"--baud=0x10"}),
              "--baud: \"0x10\" is not a decimal number from 0 to 100000000");
    EXPECT_EQ(complaintAboutOther({"--trace", "some"}),
              "--trace: \"some\" is not all, commands or none");
    EXPECT_EQ(complaintAboutOther({"--help=yes"}), "help was given a disallowed flag override");
}

}  // namespace
}  // namespace zolt_sim
