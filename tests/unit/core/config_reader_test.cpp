#include "core/config_reader.h"

#include <gtest/gtest.h>
#include <syslog.h>
#include <unistd.h>

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "tests/support/files.h"
#include "tests/support/temporary_folder.h"
#include "tests/unit/core/system_calls.h"

namespace {

class ConfigReader : public testing::Test {
  protected:
    ConfigReader() { system_calls::takeLogCalls(); }

    CONFIG_DESCRIPTOR readText(const std::string& text) {
        support::writeFile(path_, text);
        return readConfigFile(path_);
    }
    /// Reads a configuration whose root has these children.
    CONFIG_DESCRIPTOR read(const std::string& children) {
        return readText("<ZOLTConfig>" + children + "</ZOLTConfig>");
    }

    support::TemporaryFolder folder_;
    std::string path_ = folder_.file("zoltconf.xml");
};

void expectDefaults(const CONFIG_DESCRIPTOR& config) {
    EXPECT_EQ(config.errorText, "NONE");
    EXPECT_EQ(config.debugLogFile, "");
    EXPECT_EQ(config.logLevel, 0);
    EXPECT_EQ(config.threadDelay, 5000);
    EXPECT_FALSE(config.initialPollState);
    EXPECT_FALSE(config.autoDiscover);
    for (const INTERFACE_DESCRIPTOR* entry :
         {&config.io, &config.cae, &config.mon, &config.spare}) {
        EXPECT_EQ(entry->name, "");
        EXPECT_EQ(entry->port, 0);
        EXPECT_EQ(entry->inpSeparator, "\r\n");
        EXPECT_EQ(entry->outSeparator, "\r\n");
        EXPECT_EQ(entry->threadDelay, 5000);
    }
}

void expectUnloadable(const CONFIG_DESCRIPTOR& config) {
    EXPECT_EQ(config.errorText, "Unable to load config, or unable to parse XML file!");
    // The caller decides where the failure is reported.
    EXPECT_TRUE(system_calls::takeLogCalls().empty());
    EXPECT_EQ(config.threadDelay, 5000);
    EXPECT_EQ(config.io.port, 0);
}

TEST_F(ConfigReader, AnEmptyRootGivesTheDefaults) {
    expectDefaults(read(""));
    expectDefaults(readText("<?xml version=\"1.0\"?>\n<ZOLTConfig/>\n"));
    EXPECT_TRUE(system_calls::takeLogCalls().empty());
}

TEST_F(ConfigReader, AWrongRootGivesTheDefaults) {
    expectDefaults(readText("<zoltconfig><Speed Percent=\"50\"/></zoltconfig>"));
    expectDefaults(readText("<Other><ZOLTConfig><Speed Percent=\"50\"/></ZOLTConfig></Other>"));
    EXPECT_TRUE(system_calls::takeLogCalls().empty());
}

TEST_F(ConfigReader, AFileThatCannotBeLoadedIsAnError) {
    expectUnloadable(readConfigFile(folder_.file("missing.xml")));
    expectUnloadable(readConfigFile(folder_.file("")));
    expectUnloadable(readText(""));
    expectUnloadable(readText("no element at all"));
    expectUnloadable(readText("<!-- nothing -->"));
}

TEST_F(ConfigReader, AFileThatIsNotWellFormedIsAnError) {
    expectUnloadable(readText("<ZOLTConfig>"));
    expectUnloadable(readText("<ZOLTConfig><Speed Percent=\"50\"></ZOLTConfig>"));
    expectUnloadable(readText("<ZOLTConfig><Speed Percent=50/></ZOLTConfig>"));
    // The settings before the fault are not taken, either.
    expectUnloadable(readText("<ZOLTConfig><Speed Percent=\"100\"/>"));
}

TEST_F(ConfigReader, TheSystemLogSaysThatTheDaemonCannotStart) {
    reportUnloadable();
    EXPECT_EQ(system_calls::takeLogCalls(),
              (std::vector<std::string>{
                  "mask " + std::to_string(LOG_UPTO(LOG_NOTICE)),
                  "priority " + std::to_string(LOG_NOTICE) + ": Unable to start by user " +
                      std::to_string(getuid()) +
                      ", because unable to load config, or unable to parse XML file!",
                  "close"}));
}

TEST_F(ConfigReader, AFullFileIsRead) {
    const CONFIG_DESCRIPTOR config = read(R"(
        <Debuglog File="/tmp/zolt.log" Loglevel="1"/>
        <Speed Percent="50"/>
        <InitPollState Action="TRUE"/>
        <AutoDiscover Action="True"/>
        <Interfaces>
            <Interface Name="IO" InpSeparator="\r\n" OutSeparator="\r\n" Port="2001"/>
            <Interface Name="CAE" InpSeparator="\r\n" OutSeparator="\r\n" Port="2002"/>
            <Interface Name="MON" InpSeparator="\r\n" OutSeparator="\r\n" Port="2003"/>
        </Interfaces>)");
    EXPECT_EQ(config.errorText, "NONE");
    EXPECT_EQ(config.debugLogFile, "/tmp/zolt.log");
    EXPECT_EQ(config.logLevel, 1);
    EXPECT_EQ(config.threadDelay, 2525);
    EXPECT_TRUE(config.initialPollState);
    EXPECT_TRUE(config.autoDiscover);
    EXPECT_EQ(config.io.name, "IO");
    EXPECT_EQ(config.io.port, 2001);
    EXPECT_EQ(config.io.threadDelay, 2525);
    EXPECT_EQ(config.cae.name, "CAE");
    EXPECT_EQ(config.cae.port, 2002);
    EXPECT_EQ(config.mon.name, "MON");
    EXPECT_EQ(config.mon.port, 2003);
    EXPECT_EQ(config.mon.inpSeparator, "\r\n");
    EXPECT_EQ(config.spare.name, "");
    EXPECT_EQ(config.spare.port, 0);
}

TEST_F(ConfigReader, PercentsBecomeDelays) {
    EXPECT_EQ(read(R"(<Speed Percent="100"/>)").threadDelay, 1);
    EXPECT_EQ(read(R"(<Speed Percent="1"/>)").threadDelay, 5000);
    EXPECT_EQ(read(R"(<Speed Percent="99"/>)").threadDelay, 51);
    EXPECT_EQ(read(R"(<Speed Percent="0"/>)").threadDelay, 5050);
    EXPECT_EQ(read(R"(<Speed Percent=""/>)").threadDelay, 5050);
    EXPECT_EQ(read(R"(<Speed Percent="fast"/>)").threadDelay, 5050);
    EXPECT_EQ(read(R"(<Speed Percent="200"/>)").threadDelay, -5048);
    EXPECT_EQ(read(R"(<Speed Percent="-1"/>)").threadDelay, 5101);
    EXPECT_EQ(read(R"(<Speed/>)").threadDelay, 5000);
}

TEST_F(ConfigReader, HugePercentsSaturate) {
    EXPECT_EQ(read(R"(<Speed Percent="4294967346"/>)").threadDelay, INT32_MIN);
    EXPECT_EQ(read(R"(<Speed Percent="99999999999999999999"/>)").threadDelay, INT32_MIN);
    EXPECT_EQ(read(R"(<Speed Percent="-99999999999999999999"/>)").threadDelay, INT32_MAX);
}

TEST_F(ConfigReader, TheLogLevelIsANumberOf32Bits) {
    EXPECT_EQ(read(R"(<Debuglog Loglevel="2"/>)").logLevel, 2);
    EXPECT_EQ(read(R"(<Debuglog Loglevel="-7x"/>)").logLevel, -7);
    EXPECT_EQ(read(R"(<Debuglog Loglevel="much"/>)").logLevel, 0);
    EXPECT_EQ(read(R"(<Debuglog Loglevel="2147483647"/>)").logLevel, INT32_MAX);
    EXPECT_EQ(read(R"(<Debuglog Loglevel="4294967297"/>)").logLevel, 1);
}

TEST_F(ConfigReader, OnlyThreeSpellingsSwitchOn) {
    for (const std::string on : {"TRUE", "True", "true"}) {
        EXPECT_TRUE(read("<InitPollState Action=\"" + on + "\"/>").initialPollState) << on;
        EXPECT_TRUE(read("<AutoDiscover Action=\"" + on + "\"/>").autoDiscover) << on;
    }
    for (const std::string off : {"yes", "1", "TRUE ", " TRUE", "tRUE", "", "FALSE"}) {
        EXPECT_FALSE(read("<InitPollState Action=\"" + off + "\"/>").initialPollState) << off;
        EXPECT_FALSE(read("<AutoDiscover Action=\"" + off + "\"/>").autoDiscover) << off;
    }
    EXPECT_FALSE(read(R"(<AutoDiscover Action="TRUE"/><AutoDiscover Action="no"/>)").autoDiscover);
}

TEST_F(ConfigReader, NamesAreComparedExactly) {
    expectDefaults(read(R"(<speed Percent="1"/><Speed percent="50"/><SPEED Percent="50"/>
        <DebugLog File="a"/><Debuglog file="a" LogLevel="3"/><InitPollstate Action="TRUE"/>
        <Autodiscover Action="TRUE"/><AutoDiscover action="TRUE"/>
        <interfaces><I Name="IO" Port="2001"/></interfaces>)"));
}

TEST_F(ConfigReader, AttributesBelongToTheirElement) {
    expectDefaults(read(R"(<Debuglog Percent="50" Action="TRUE"/><Speed File="a" Loglevel="3"/>
        <InitPollState Percent="50"/><Unknown File="a" Percent="50" Action="TRUE"/>)"));
}

TEST_F(ConfigReader, OnlyDirectChildrenOfTheRootAreRead) {
    expectDefaults(read(R"(<Settings><Speed Percent="50"/><Interfaces><I Name="IO" Port="2001"/>
        </Interfaces></Settings><Speed><Speed Percent="50"/></Speed>)"));
}

TEST_F(ConfigReader, TextAndCommentsAreNotRead) {
    const CONFIG_DESCRIPTOR config = read(R"(text <!-- <Speed Percent="1"/> -->
        <Speed Percent="50">Percent="1"</Speed> <![CDATA[<Speed Percent="1"/>]]> text)");
    EXPECT_EQ(config.threadDelay, 2525);
}

TEST_F(ConfigReader, AttributesMayComeInAnyOrderAndAlone) {
    const CONFIG_DESCRIPTOR both = read(R"(<Debuglog Loglevel="1" File="a"/>)");
    EXPECT_EQ(both.debugLogFile, "a");
    EXPECT_EQ(both.logLevel, 1);
    const CONFIG_DESCRIPTOR apart = read(R"(<Debuglog File="a"/><Debuglog Loglevel="1"/>)");
    EXPECT_EQ(apart.debugLogFile, "a");
    EXPECT_EQ(apart.logLevel, 1);
    EXPECT_EQ(read(R"(<Debuglog File="a"/><Debuglog File="b"/>)").debugLogFile, "b");
}

TEST_F(ConfigReader, AttributeValuesAreDecoded) {
    EXPECT_EQ(read(R"(<Debuglog File="/tmp/a&amp;b &#x263A;.log"/>)").debugLogFile,
              "/tmp/a&b \xE2\x98\xBA.log");
}

}  // namespace
