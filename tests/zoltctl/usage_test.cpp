// Wrong use, told before anything is sent: nobody listens in these tests.
#include "tests/zoltctl/fake_test.h"

namespace {

using namespace ctl_test;

struct WrongUse {
    std::vector<std::string> arguments;
    std::string error;
};

class Usage : public FakeTest {
  protected:
    static void expectRefused(const std::vector<WrongUse>& rows) {
        for (const WrongUse& row : rows) {
            SCOPED_TRACE(row.error);
            expectOutcome(run(row.arguments), 2, "", "zoltctl: " + row.error);
        }
    }
};

TEST_F(Usage, OptionsAndCommands) {
    expectRefused({
        {{}, "a command is missing (zoltctl --help tells the use)"},
        {{"nonsense"}, "\"nonsense\" is no command (zoltctl --help tells the use)"},
        {{"--nonsense", "cards"}, "\"--nonsense\" is no option (zoltctl --help tells the use)"},
        {{"poll", "--all"}, "\"--all\" is no option (zoltctl --help tells the use)"},
        {{"--cae-port", "0", "version"},
         "\"0\" is no port: --cae-port takes a number from 1 to 65535"},
        {{"--io-port", "65536", "version"},
         "\"65536\" is no port: --io-port takes a number from 1 to 65535"},
        {{"--mon-port", "4003x", "version"},
         "\"4003x\" is no port: --mon-port takes a number from 1 to 65535"},
        {{"--timeout", "0", "version"},
         "\"0\" is no time: --timeout takes seconds above 0 and up to 86400"},
        {{"--timeout", "-1", "version"},
         "\"-1\" is no time: --timeout takes seconds above 0 and up to 86400"},
        {{"--timeout", "soon", "version"},
         "\"soon\" is no time: --timeout takes seconds above 0 and up to 86400"},
        {{"--timeout", "nan", "version"},
         "\"nan\" is no time: --timeout takes seconds above 0 and up to 86400"},
        {{"--timeout", "1e99", "version"},
         "\"1e99\" is no time: --timeout takes seconds above 0 and up to 86400"},
        {{"--timeout"}, "--timeout: 1 required SECONDS missing (zoltctl --help tells the use)"},
        {{"--host", "", "version"}, "--host is empty"},
        {{"--host=", "version"}, "--host is empty"},
        {{"version", "--timeout="},
         "\"\" is no time: --timeout takes seconds above 0 and up to 86400"},
        {{"watch", "--count=", "--for=1"}, "\"\" is no count: --count takes a number from 1 on"},
        {{"watch", "--for", "0"}, "\"0\" is no time: --for takes seconds above 0"},
        {{"watch", "--count", "0"}, "\"0\" is no count: --count takes a number from 1 on"},
        {{"monitor", "--count", "-1"}, "\"-1\" is no count: --count takes a number from 1 on"},
        {{"monitor", "--for", "x"}, "\"x\" is no time: --for takes seconds above 0"},
        {{"raw"}, "cae or io is missing behind \"raw\""},
        {{"raw", "mon", "x"}, "\"mon\" is not expected here, but cae or io"},
        {{"raw", "cae"}, "LINE is missing behind \"raw cae\""},
        {{"raw", "cae", "DRVVER", "more"}, "\"more\" is one argument too many"},
        {{"raw", "io", std::string(254, 'x')},
         "the line is too long: with its end 256 bytes, and the daemon takes 255"},
        {{"speed"}, "PERCENT is missing behind \"speed\""},
        {{"speed", "1x"}, "\"1x\" is no percentage: a number from 1 to 100"},
        {{"speed", "0"}, "\"0\" is no percentage: a number from 1 to 100"},
        {{"speed", "101"}, "\"101\" is no percentage: a number from 1 to 100"},
        {{"cards", "3"}, "\"3\" is one argument too many"},
        {{"console", "x"}, "\"x\" is one argument too many"},
    });
}

TEST_F(Usage, CardsAndInputs) {
    // 16 characters, 32 bytes.
    std::string wide;
    for (int i = 0; i < 16; ++i) wide += "\u00E4";
    expectRefused({
        {{"poll", "maybe"}, "\"maybe\" is no state: on or off"},
        {{"poll", "on", "G"}, "\"G\" is no address: one digit 0 to F"},
        {{"poll", "on", "10"}, "\"10\" is no address: one digit 0 to F"},
        {{"input"}, "ADDRESS is missing behind \"input\""},
        {{"input", "G"}, "\"G\" is no address: one digit 0 to F"},
        {{"input", "3", "G"}, "\"G\" is no block: one digit 0 to F"},
        {{"input", "3", "10"}, "\"10\" is no block: one digit 0 to F"},
        {{"set"}, "ADDRESS is missing behind \"set\""},
        {{"set", "5", "1"}, "DATA is missing behind \"set 5 1\""},
        {{"set", "5", "10", "FB"}, "\"10\" is no block: one digit 0 to F"},
        {{"set", "5", "1", "FBX"}, "\"FBX\" is no data: hexadecimal 00 to FF"},
        {{"set", "5", "1", "100"}, "\"100\" is no data: hexadecimal 00 to FF"},
        {{"set", "5", "1", ""}, "\"\" is no data: hexadecimal 00 to FF"},
        {{"set", "5", "1", "FB", "more"}, "\"more\" is one argument too many"},
        {{"lcd", "E"}, "clear, light, cursor, blink or text is missing behind \"lcd E\""},
        {{"lcd", "E", "shine"},
         "\"shine\" is not expected here, but clear, light, cursor, blink or text"},
        {{"lcd", "E", "light"}, "STATE is missing behind \"lcd E light\""},
        {{"lcd", "E", "light", "ON"}, "\"ON\" is no state: on or off"},
        {{"lcd", "E", "text", "3", "1"}, "TEXT is missing behind \"lcd E text 3 1\""},
        {{"lcd", "E", "text", "256", "1", "x"}, "\"256\" is no column: 0 to 255"},
        {{"lcd", "E", "text", "3", "-1", "x"}, "\"-1\" is no row: 0 to 255"},
        {{"lcd", "E", "text", "3", "1", "12345678901234567890123456789012"},
         "\"12345678901234567890123456789012\" is no text for an LCD: at most 31 bytes"},
        {{"lcd", "E", "text", "3", "1", wide},
         "\"" + wide + "\" is no text for an LCD: at most 31 bytes"},
        {{"lcd", "E", "text", "3", "1", "two\r\nlines"},
         "\"aElPAp0301ttwo\\r\\nlines\" holds the IO port's line end, \"\\r\\n\""},
        {{"ir", "9"}, "HEX is missing behind \"ir 9\""},
        {{"ir", "9", ""}, "\"\" is no IR stream: 1 to 34 pairs of hexadecimal digits"},
        {{"ir", "9", "434"}, "\"434\" is no IR stream: 1 to 34 pairs of hexadecimal digits"},
        {{"ir", "9", "4X"}, "\"4X\" is no IR stream: 1 to 34 pairs of hexadecimal digits"},
        {{"ir", "9", std::string(70, '0')},
         "\"000000000000000000000000000000000000000000000000000000000000...\" is no IR stream: 1 "
         "to 34 pairs of hexadecimal digits"},
    });
}

TEST_F(Usage, CardConfiguration) {
    expectRefused({
        {{"config"}, "lcd, analogue, servo, motor or reboot is missing behind \"config\""},
        {{"config", "keymatrix", "8"},
         "\"keymatrix\" is not expected here, but lcd, analogue, servo, motor or reboot"},
        {{"config", "lcd", "E", "self-test"}, "STATE is missing behind \"config lcd E self-test\""},
        {{"config", "lcd", "E", "self-test", "maybe"}, "\"maybe\" is no state: on or off"},
        {{"config", "analogue", "F", "mask", "40"}, "\"40\" is no mask: hexadecimal 00 to 3F"},
        {{"config", "servo", "0", "end", "C", "channel", "2"}, "\"C\" is no end: A or B"},
        {{"config", "servo", "0", "end", "B", "channel", "6"}, "\"6\" is no servo channel: 0 to 5"},
        {{"config", "servo", "0", "end", "B", "2"}, "\"2\" is not expected here, but channel"},
        {{"config", "servo", "0", "end", "B", "channel", "2", "100"},
         "\"100\" is no value: hexadecimal 00 to FF"},
        {{"config", "motor", "A", "silent-range", "3"}, "\"3\" is no motor channel: 0 to 2"},
        {{"config", "motor", "A", "silent-range", "2", "21"},
         "\"21\" is no silent range: hexadecimal 00 to 20"},
        {{"config", "reboot"}, "ADDRESS is missing behind \"config reboot\""},
        {{"config", "reboot", "E", "now"}, "\"now\" is one argument too many"},
    });
}

TEST_F(Usage, TextForAnLcdUncheckedNeedsALineEnd) {
    expectOutcome(ctl_test::run({"--no-check", "lcd", "E", "text", "0", "0", "x"}), 2, "",
                  "zoltctl: lcd text with --no-check needs --line-end: the end of the line would "
                  "show on the LCD if it were not the daemon's");
}

TEST_F(Usage, EnvironmentThatIsWrong) {
    expectOutcome(ctl_test::run({"version"}, {.environment = {"ZOLT_CAE_PORT=x"}}), 2, "",
                  "zoltctl: \"x\" is no port: --cae-port takes a number from 1 to 65535");
    expectOutcome(ctl_test::run({"version"}, {.environment = {"ZOLT_TIMEOUT=x"}}), 2, "",
                  "zoltctl: \"x\" is no time: --timeout takes seconds above 0 and up to 86400");
}

TEST_F(Usage, HelpAndVersion) {
    expectOutcome(run({"--version"}), 0, "zoltctl 1.20\n");
    expectOutcome(run({"cards", "--version"}), 0, "zoltctl 1.20\n");
    const auto help = run({"--help"});
    EXPECT_EQ(help.end, "status 0");
    EXPECT_EQ(help.errors, "");
    EXPECT_TRUE(help.output.starts_with("Client of the card bus daemon zolt.\n")) << help.output;
    const auto ofCommand = run({"set", "--help"});
    EXPECT_EQ(ofCommand.end, "status 0");
    EXPECT_EQ(ofCommand.errors, "");
    EXPECT_NE(ofCommand.output.find("zoltctl set ADDRESS BLOCK DATA\n"), std::string::npos)
        << ofCommand.output;
}

TEST_F(Usage, ALineOfMoreThan255Bytes) {
    const std::string line(253, 'x');
    const FakeTcpPort cae(kDefaultCae, console({{line + "\r\n", reply({"CIA: fine"})}}));
    expectOutcome(run({"raw", "cae", line}), 0, "CIA: fine\n");
    const FakeTcpPort longer(4101, [](FakeConnection& client) {
        client.send(kConsoleBanner);
        EXPECT_EQ(client.receiveRest(), "");
    });
    expectOutcome(
        run({"--cae-port", "4101", "raw", "cae", line + "x"}), 2, "",
        "zoltctl: the line is too long: with its end 256 bytes, and the daemon takes 255");
}

}  // namespace
