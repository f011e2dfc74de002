// zolt-check shows the settings that the daemon's reader returns.
#include <nlohmann/json.hpp>

#include "core/config_reader.h"
#include "tests/zolt-check/check_program_test.h"

namespace {

using Json = nlohmann::json;

class SettingsShown : public CheckProgramTest {
  protected:
    // For the daemon's sleep a negative pause is a long one.
    static std::uint32_t sleepOf(std::int32_t pause) { return static_cast<std::uint32_t>(pause); }

    static void expectShown(const INTERFACE_DESCRIPTOR& interface, const Json& shown) {
        EXPECT_EQ(shown.at("configured"), !interface.name.empty());
        EXPECT_EQ(shown.at("port"), interface.port);
        EXPECT_EQ(shown.at("inpSeparator"), interface.inpSeparator);
        EXPECT_EQ(shown.at("outSeparator"), interface.outSeparator);
        EXPECT_EQ(shown.at("pause"), sleepOf(interface.threadDelay));
    }

    /// Checks a file with these children of the root.
    void expectShown(const std::string& children) {
        SCOPED_TRACE(children);
        const std::string file = write("<ZOLTConfig>" + children + "</ZOLTConfig>");
        const std::string end = run({"--json", file});
        EXPECT_TRUE(end == "status 0" || end == "status 1") << end;
        const CONFIG_DESCRIPTOR config = readConfigFile(file);
        ASSERT_EQ(config.errorText, "NONE");
        const Json settings = Json::parse(output()).at("settings");
        EXPECT_EQ(settings.at("logFile"), config.debugLogFile);
        EXPECT_EQ(settings.at("logLevel"), config.logLevel);
        EXPECT_EQ(settings.at("pause"), sleepOf(config.threadDelay));
        EXPECT_EQ(settings.at("polling"), config.initialPollState);
        EXPECT_EQ(settings.at("discovery"), config.autoDiscover);
        const Json& interfaces = settings.at("interfaces");
        EXPECT_EQ(interfaces.size(), 3U);
        expectShown(config.cae, interfaces.at("CAE"));
        expectShown(config.io, interfaces.at("IO"));
        expectShown(config.mon, interfaces.at("MON"));
    }
};

TEST_F(SettingsShown, AreTheReaders) {
    for (const char* children : {
             "",
             R"(<Debuglog File="/tmp/zolt.log" Loglevel="1"/><Speed Percent="50"/>
                <InitPollState Action="TRUE"/><AutoDiscover Action="True"/><Interfaces>
                <Interface Name="IO" InpSeparator="\r\n" OutSeparator="\r\n" Port="2001"/>
                <Interface Name="CAE" InpSeparator="\n" OutSeparator="" Port="2002"/>
                <Interface Name="MON" InpSeparator="\t" OutSeparator=";" Port="2003"/>
                </Interfaces>)",
             R"(<Speed Percent="200"/><Debuglog Loglevel="-7x"/>)",
             R"(<Speed Percent="99999999999999999999"/><AutoDiscover Action="yes"/>)",
             R"(<Debuglog File="a"/><Debuglog File="b" Loglevel="4294967297"/>)",
             R"(<Debuglog File="/tmp/a&amp;b &#x263A;.log"/>)",
             R"(<Interfaces><I Name="IO" Port="65536"/><I Name="IO" Port="4294968321"/>
                <I Name="DMI" Port="2001"/><I Name="CAE" Port=" 2001 tcp"/>
                <I Name="MON" Port="80"/></Interfaces>)",
             R"(<Interfaces><I Name="IO" Port="2001"/></Interfaces><Speed Percent="50"/>
                <Interfaces><I Name="CAE" OutSeparator="end\r\nof line"/>
                <I Name="MON" Port="2003"/></Interfaces><Speed Percent="100"/>)",
             R"(<speed Percent="1"/><Speed percent="50"/><interfaces/>)",
         }) {
        expectShown(children);
    }
}

}  // namespace
