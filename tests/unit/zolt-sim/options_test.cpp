#include "apps/zolt-sim/options.h"

#include <gtest/gtest.h>

#include "tests/unit/zolt-sim/complaint_of.h"

namespace sim {
namespace {

std::string reasonForOptions(const std::vector<std::string>& arguments) {
    return complaintOf<std::invalid_argument>([&] { parseOptions(arguments); });
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
}

TEST(Options, AreReadApartAndAttached) {
    const Options options = parseOptions({"--bus=a.bus", "--link=l", "--baud=0", "--control", "c",
                                          "--trace", "all", "--trace-file=t", "--scenario", "s"});
    EXPECT_EQ(options.baud, 0U);
    EXPECT_EQ(options.controlPath, "c");
    EXPECT_EQ(options.filter, TraceFilter::kAll);
    EXPECT_EQ(options.traceFile, "t");
    EXPECT_EQ(options.scenarioFile, "s");
}

TEST(Options, HelpAndVersionNeedNoOthers) {
    EXPECT_TRUE(parseOptions({"--help"}).help);
    EXPECT_TRUE(parseOptions({"--version"}).version);
    EXPECT_NE(optionsHelp().find("  --trace-file PATH   writes the whole trace into this file\n"),
              std::string::npos)
        << optionsHelp();
}

TEST(Options, TellWhatIsWrong) {
    EXPECT_EQ(reasonForOptions({}), "--bus and --link are required");
    EXPECT_EQ(reasonForOptions({"--bus", "a"}), "--bus and --link are required");
    EXPECT_EQ(reasonForOptions({"--bus"}), "--bus needs FILE");
    EXPECT_EQ(reasonForOptions({"--link="}), "--link needs PATH");
    EXPECT_EQ(reasonForOptions({"--speed", "1"}), "unknown argument \"--speed\"");
    EXPECT_EQ(reasonForOptions({"bus"}), "unknown argument \"bus\"");
    EXPECT_EQ(reasonForOptions({"--baud", "fast"}), "--baud takes a decimal number, not \"fast\"");
    EXPECT_EQ(reasonForOptions({"--trace", "some"}),
              "--trace takes all, commands or none, not \"some\"");
    EXPECT_EQ(reasonForOptions({"--help=yes"}), "--help takes no value");
}

}  // namespace
}  // namespace sim
