#include "apps/zoltctl/arguments/settings.h"

#include <gtest/gtest.h>

#include "tests/support/files.h"
#include "tests/support/temporary_folder.h"
#include "tests/unit/zoltctl/failure_of.h"

using namespace zoltctl;
using zolt_os::Seconds;
using zolt_ports::Port;

namespace {

class SettingsTest : public testing::Test {
  protected:
    std::string write(const std::string& interfaces) {
        const std::string path = folder_.file("zoltconf.xml");
        support::writeFile(path,
                           "<ZOLTConfig><Interfaces>" + interfaces + "</Interfaces></ZOLTConfig>");
        return path;
    }
    Settings make(const GivenSettings& given) const {
        return makeSettings(given, folder_.file("none.xml"));
    }
    std::string complaint(const GivenSettings& given) const {
        return failureOf([&] { make(given); });
    }

    support::TemporaryFolder folder_;
};

constexpr const char* kInterfaces =
    R"(<I Name="CAE" Port="5001" InpSeparator="\n" OutSeparator=";"/>
       <I Name="IO" Port="5002"/>)";

TEST_F(SettingsTest, DefaultsWithoutOptionsAndConfiguration) {
    const Settings settings = make({});
    EXPECT_EQ(settings.at(Port::kCae).label(), "console 127.0.0.1:4001");
    EXPECT_EQ(settings.at(Port::kIo).label(), "IO 127.0.0.1:4002");
    EXPECT_EQ(settings.at(Port::kMon).label(), "monitor 127.0.0.1:4003");
    EXPECT_EQ(settings.at(Port::kCae).lineEnd, std::nullopt);
    EXPECT_EQ(settings.at(Port::kCae).outSeparator, "\r\n");
    EXPECT_EQ(settings.timeout, Seconds(20));
    EXPECT_EQ(settings.note, "");
}

TEST_F(SettingsTest, ConfigurationGivesPortsAndSeparators) {
    GivenSettings given;
    given.config = write(kInterfaces);
    const Settings settings = make(given);
    EXPECT_EQ(settings.at(Port::kCae).number, 5001);
    EXPECT_EQ(settings.at(Port::kCae).lineEnd, "\n");
    EXPECT_EQ(settings.at(Port::kCae).outSeparator, ";");
    EXPECT_EQ(settings.at(Port::kIo).number, 5002);
    EXPECT_EQ(settings.at(Port::kIo).lineEnd, "\r\n");
    EXPECT_EQ(settings.at(Port::kMon).number, std::nullopt);
}

TEST_F(SettingsTest, DefaultConfigurationIsReadWhenItIsThere) {
    const Settings settings = makeSettings({}, write(kInterfaces));
    EXPECT_EQ(settings.at(Port::kCae).number, 5001);
    EXPECT_EQ(settings.note, "");
}

TEST_F(SettingsTest, OptionsComeBeforeTheConfiguration) {
    GivenSettings given;
    given.config = write(kInterfaces);
    given.host = "::1";
    given.caePort = "6001";
    given.monPort = "6003";
    given.lineEnd = "cr";
    given.timeout = "0.5";
    const Settings settings = make(given);
    EXPECT_EQ(settings.at(Port::kCae).label(), "console [::1]:6001");
    EXPECT_EQ(settings.at(Port::kIo).number, 5002);
    EXPECT_EQ(settings.at(Port::kMon).number, 6003);
    EXPECT_EQ(settings.at(Port::kCae).lineEnd, "\r");
    EXPECT_EQ(settings.at(Port::kIo).lineEnd, "\r");
    EXPECT_EQ(settings.timeout, Seconds(0.5));
}

TEST_F(SettingsTest, LineEnds) {
    struct Case {
        const char* text;
        std::optional<std::string> end;
    };
    for (const Case& entry :
         {Case{"auto", std::nullopt}, Case{"crlf", "\r\n"}, Case{"lf", "\n"}, Case{"cr", "\r"},
          Case{"\\n\\r;", "\n\r;"}, Case{"", ""}, Case{"a;\\x\\", "a;\\x\\"}}) {
        GivenSettings given;
        given.config = write(kInterfaces);
        given.lineEnd = entry.text;
        EXPECT_EQ(make(given).at(Port::kCae).lineEnd, entry.end) << entry.text;
    }
}

TEST_F(SettingsTest, NamedConfigurationHasToBeUsable) {
    GivenSettings given;
    given.config = folder_.file("missing.xml");
    EXPECT_EQ(complaint(given),
              "8 cannot use the configuration " + *given.config + ": No such file or directory");
    given.config = write(R"(<I Name="CAE" Port="80"/>)");
    EXPECT_EQ(complaint(given), "8 cannot use the configuration " + *given.config +
                                    ": CAE interface port number is less than 1025");
}

TEST_F(SettingsTest, UnusableDefaultConfigurationIsNoted) {
    const std::string path = write(R"(<I Name="CAE" Port="80"/>)");
    const Settings settings = makeSettings({}, path);
    EXPECT_EQ(settings.at(Port::kCae).number, 4001);
    EXPECT_EQ(settings.note, "cannot use the configuration " + path +
                                 ": CAE interface port number is less than 1025; the ports 4001, "
                                 "4002 and 4003 are assumed");
}

TEST_F(SettingsTest, WrongPortsAreRefused) {
    for (const char* port : {"", "0", "65536", "80x", "-1"}) {
        GivenSettings given;
        given.ioPort = port;
        EXPECT_EQ(complaint(given),
                  "2 --io-port takes a number from 1 to 65535, not \"" + std::string(port) + "\"");
    }
}

TEST_F(SettingsTest, WrongTimesAndHostsAreRefused) {
    for (const char* time : {"", "0", "-1", "soon", "86401"}) {
        GivenSettings given;
        given.timeout = time;
        EXPECT_EQ(complaint(given), "2 --timeout takes seconds above 0 and up to 86400, not \"" +
                                        std::string(time) + "\"");
    }
    GivenSettings given;
    given.host = "";
    EXPECT_EQ(complaint(given), "2 --host is empty");
}

}  // namespace
