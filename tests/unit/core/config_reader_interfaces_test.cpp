#include <gtest/gtest.h>

#include <cstdint>
#include <string>

#include "core/config_reader.h"
#include "tests/support/files.h"
#include "tests/support/temporary_folder.h"
#include "tests/unit/core/system_calls.h"

namespace {

constexpr const char* kPortError = " interface port number is less than 1025";

class ConfigInterfaces : public testing::Test {
  protected:
    /// Reads a configuration whose root has these children.
    CONFIG_DESCRIPTOR read(const std::string& children) {
        support::writeFile(path_, "<ZOLTConfig>" + children + "</ZOLTConfig>");
        return readConfigFile(path_);
    }
    /// Reads a configuration with these entries in one Interfaces element.
    CONFIG_DESCRIPTOR readEntries(const std::string& entries) {
        return read("<Interfaces>" + entries + "</Interfaces>");
    }
    std::string inpSeparator(const std::string& typed) {
        return readEntries("<I Name=\"IO\" InpSeparator=\"" + typed + "\"/>").io.inpSeparator;
    }
    std::string outSeparator(const std::string& typed) {
        return readEntries("<I Name=\"IO\" OutSeparator=\"" + typed + "\"/>").io.outSeparator;
    }

  private:
    support::TemporaryFolder folder_;
    std::string path_ = folder_.file("zoltconf.xml");
};

TEST_F(ConfigInterfaces, TheNameSelectsTheInterface) {
    const CONFIG_DESCRIPTOR config = readEntries(
        R"(<A Name="MON" Port="1025"/><B Name="IO" Port="1026"/><IO Name="CAE" Port="1027"/>)");
    EXPECT_EQ(config.errorText, "NONE");
    EXPECT_EQ(config.mon.port, 1025);
    EXPECT_EQ(config.io.port, 1026);
    EXPECT_EQ(config.cae.port, 1027);
    EXPECT_EQ(config.cae.name, "CAE");
}

TEST_F(ConfigInterfaces, OtherNamesAreDropped) {
    const CONFIG_DESCRIPTOR config = readEntries(
        R"(<I Name="DMI" Port="2001"/><I Name="io" Port="2002"/><IO Port="2003"/>
           <I Name="IO " Port="2004"/>)");
    EXPECT_EQ(config.errorText, "NONE");
    for (const INTERFACE_DESCRIPTOR* entry :
         {&config.io, &config.cae, &config.mon, &config.spare}) {
        EXPECT_EQ(entry->name, "");
        EXPECT_EQ(entry->port, 0);
    }
}

TEST_F(ConfigInterfaces, ThePairsOfASeparatorBecomeCharacters) {
    EXPECT_EQ(inpSeparator(R"(\n)"), "\n");
    EXPECT_EQ(inpSeparator(R"(\r)"), "\r");
    EXPECT_EQ(inpSeparator(R"(\r\n)"), "\r\n");
    EXPECT_EQ(inpSeparator(R"(\n\r\n\r)"), "\n\r\n\r");
    EXPECT_EQ(inpSeparator(";"), ";");
    EXPECT_EQ(inpSeparator(""), "");
    EXPECT_EQ(outSeparator(R"(\n)"), "\n");
    EXPECT_EQ(outSeparator(R"(end\r\nof line)"), "end\r\nof line");
    EXPECT_EQ(outSeparator("##"), "##");
}

TEST_F(ConfigInterfaces, OnlyTheTwoPairsAreKnown) {
    EXPECT_EQ(inpSeparator(R"(\t\x0A\0)"), R"(\t\x0A\0)");
    EXPECT_EQ(inpSeparator(R"(\R\N)"), R"(\R\N)");
    EXPECT_EQ(inpSeparator(R"(\)"), R"(\)");
    // The first backslash does not protect the second.
    EXPECT_EQ(inpSeparator(R"(\\n)"), "\\\n");
    EXPECT_EQ(inpSeparator(R"(\\r\n)"), "\\\r\n");
    EXPECT_EQ(inpSeparator(R"(r\n\)"), "r\n\\");
}

TEST_F(ConfigInterfaces, ASeparatorHasNoSideEffectOnTheOther) {
    const CONFIG_DESCRIPTOR config =
        readEntries(R"(<I OutSeparator=";" Name="IO"/><I InpSeparator="#" Name="MON"/>)");
    EXPECT_EQ(config.io.outSeparator, ";");
    EXPECT_EQ(config.io.inpSeparator, "\r\n");
    EXPECT_EQ(config.mon.inpSeparator, "#");
    EXPECT_EQ(config.mon.outSeparator, "\r\n");
}

TEST_F(ConfigInterfaces, PortsFrom1025OnAreTaken) {
    EXPECT_EQ(readEntries(R"(<I Name="IO" Port="1025"/>)").io.port, 1025);
    EXPECT_EQ(readEntries(R"(<I Name="IO" Port="65536"/>)").io.port, 65536);
    EXPECT_EQ(readEntries(R"(<I Name="IO" Port=" 2001 tcp"/>)").io.port, 2001);
    EXPECT_EQ(readEntries(R"(<I Name="IO" Port="2147483647"/>)").io.port, INT32_MAX);
    // The lower 32 bits of this number are 1025.
    EXPECT_EQ(readEntries(R"(<I Name="IO" Port="4294968321"/>)").io.port, 1025);
}

TEST_F(ConfigInterfaces, AMissingPortIsNoError) {
    const CONFIG_DESCRIPTOR config = readEntries(R"(<I Name="IO"/>)");
    EXPECT_EQ(config.errorText, "NONE");
    EXPECT_EQ(config.io.name, "IO");
    EXPECT_EQ(config.io.port, 0);
}

TEST_F(ConfigInterfaces, SmallerPortsAreAnErrorWithTheName) {
    for (const std::string port :
         {"1024", "80", "0", "-1", "-2147483648", "", "http", "4294967296", "2147483648"}) {
        const CONFIG_DESCRIPTOR config = readEntries("<I Name=\"CAE\" Port=\"" + port + "\"/>");
        EXPECT_EQ(config.errorText, std::string("CAE") + kPortError) << '"' << port << '"';
        EXPECT_EQ(config.cae.name, "");
    }
}

TEST_F(ConfigInterfaces, AHugePortIsCutTo32BitsAndIsThenNegative) {
    EXPECT_EQ(readEntries(R"(<I Name="IO" Port="99999999999999999999"/>)").errorText,
              std::string("IO") + kPortError);
}

TEST_F(ConfigInterfaces, ThePortErrorKnowsOnlyTheNameBeforeIt) {
    EXPECT_EQ(readEntries(R"(<I Port="1024" Name="CAE"/>)").errorText, kPortError);
    EXPECT_EQ(readEntries(R"(<I Name="MON" Port="2001"/><I Port="1024" Name="CAE"/>)").errorText,
              kPortError);
}

TEST_F(ConfigInterfaces, ThePortOfAnUnknownNameIsCheckedToo) {
    EXPECT_EQ(readEntries(R"(<I Name="DMI" Port="1024"/>)").errorText,
              std::string("DMI") + kPortError);
}

TEST_F(ConfigInterfaces, ThePortErrorIsCutAt99Characters) {
    const std::string name(200, 'n');
    EXPECT_EQ(readEntries("<I Name=\"" + name + "\" Port=\"1\"/>").errorText, name.substr(0, 99));
    EXPECT_EQ(readEntries("<I Name=\"" + name.substr(0, 70) + "\" Port=\"1\"/>").errorText,
              (name.substr(0, 70) + kPortError).substr(0, 99));
    EXPECT_EQ(readEntries("<I Name=\"" + name.substr(0, 59) + "\" Port=\"1\"/>").errorText,
              name.substr(0, 59) + kPortError);
}

TEST_F(ConfigInterfaces, APortErrorEndsTheReadingAtOnce) {
    system_calls::takeLogCalls();
    const CONFIG_DESCRIPTOR config = read(R"(
        <AutoDiscover Action="TRUE"/>
        <Interfaces>
            <I Name="IO" Port="2001"/><I Name="CAE" Port="1"/><I Name="MON" Port="2003"/>
        </Interfaces>
        <Interfaces><I Name="MON" Port="2003"/></Interfaces>
        <Debuglog File="a" Loglevel="3"/><Speed Percent="50"/>)");
    EXPECT_EQ(config.errorText, std::string("CAE") + kPortError);
    EXPECT_TRUE(config.autoDiscover);
    EXPECT_EQ(config.io.port, 2001);
    EXPECT_EQ(config.cae.name, "");
    EXPECT_EQ(config.mon.name, "");
    EXPECT_EQ(config.debugLogFile, "");
    EXPECT_EQ(config.logLevel, 0);
    EXPECT_EQ(config.threadDelay, 5000);
    // The error text is for the debug log only.
    EXPECT_TRUE(system_calls::takeLogCalls().empty());
}

TEST_F(ConfigInterfaces, TheLastEntryOfANameReplacesTheOthersWholly) {
    const CONFIG_DESCRIPTOR config =
        readEntries(R"(<I Name="IO" Port="2001" InpSeparator=";"/><I Name="IO"/>)");
    EXPECT_EQ(config.io.port, 0);
    EXPECT_EQ(config.io.inpSeparator, "\r\n");
}

TEST_F(ConfigInterfaces, TheLastAttributeOfANameCounts) {
    const CONFIG_DESCRIPTOR config = readEntries(R"(<I Name="CAE" Port="2001" Name="IO"/>)");
    EXPECT_EQ(config.io.port, 2001);
    EXPECT_EQ(config.cae.name, "");
}

TEST_F(ConfigInterfaces, TheDelayIsTheOneOfTheSpeedsSeenBefore) {
    const CONFIG_DESCRIPTOR config = read(R"(
        <Interfaces><I Name="IO" Port="2001"/></Interfaces>
        <Speed Percent="50"/>
        <Interfaces><I Name="CAE" Port="2002"/><I Name="MON" Port="2003"/></Interfaces>
        <Speed Percent="100"/>)");
    EXPECT_EQ(config.io.threadDelay, 5000);
    EXPECT_EQ(config.cae.threadDelay, 2525);
    EXPECT_EQ(config.mon.threadDelay, 2525);
    EXPECT_EQ(config.threadDelay, 1);
}

TEST_F(ConfigInterfaces, ASecondElementStartsFromTheEntriesOfTheFirst) {
    const CONFIG_DESCRIPTOR config = read(R"(
        <Interfaces>
            <I Name="IO" Port="2001" OutSeparator=";"/><I Name="CAE" Port="2002"/>
        </Interfaces>
        <Interfaces><I Name="MON" InpSeparator="#"/><I OutSeparator="!"/></Interfaces>)");
    EXPECT_EQ(config.mon.port, 2001);
    EXPECT_EQ(config.mon.outSeparator, ";");
    EXPECT_EQ(config.mon.inpSeparator, "#");
    EXPECT_EQ(config.io.inpSeparator, "\r\n");
    // The second entry still has its name from before.
    EXPECT_EQ(config.cae.port, 2002);
    EXPECT_EQ(config.cae.outSeparator, "!");
}

TEST_F(ConfigInterfaces, APortErrorInASecondElementKnowsTheNameFromBefore) {
    const CONFIG_DESCRIPTOR config = read(R"(
        <Interfaces><I Name="IO" Port="2001"/></Interfaces>
        <Interfaces><I Port="1024" Name="CAE"/></Interfaces>)");
    EXPECT_EQ(config.errorText, std::string("IO") + kPortError);
}

TEST_F(ConfigInterfaces, EntriesAfterTheFourthAreIgnored) {
    const CONFIG_DESCRIPTOR config = read(R"(
        <Interfaces>
            <I Name="X" Port="2001"/><I Name="X" Port="2002"/><I Name="X" Port="2003"/>
            <I Name="IO" Port="2004"/><I Name="IO" Port="80"/><I Name="CAE" Port="2006"/>
        </Interfaces>
        <AutoDiscover Action="TRUE"/>)");
    EXPECT_EQ(config.errorText, "NONE");
    EXPECT_EQ(config.io.port, 2004);
    EXPECT_EQ(config.cae.name, "");
    EXPECT_TRUE(config.autoDiscover);
}

TEST_F(ConfigInterfaces, CommentsAndTextBetweenEntriesDoNotCount) {
    const CONFIG_DESCRIPTOR config = readEntries(R"(
        <!-- one --> text <I Name="IO" Port="2001"/> text <![CDATA[data]]>
        <!-- two --> text <I Name="CAE" Port="2002"/> text <?note three?>
        <I Name="MON" Port="2003"/> text <I Name="IO" Port="2004"/> text)");
    EXPECT_EQ(config.cae.port, 2002);
    EXPECT_EQ(config.mon.port, 2003);
    EXPECT_EQ(config.io.port, 2004);
}

}  // namespace
