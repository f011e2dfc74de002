// Wrong use is reported before anything is sent: no daemon listens in these tests.
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
        {{}, "a command is missing (see zoltctl --help)"},
        {{"nonsense"}, "unknown command \"nonsense\" (see zoltctl --help)"},
        {{"--nonsense", "cards"}, "unknown option \"--nonsense\" (see zoltctl --help)"},
        {{"poll", "--all"}, "unknown option \"--all\" (see zoltctl --help)"},
        {{"--cae-port", "0", "version"}, "--cae-port takes a number from 1 to 65535, not \"0\""},
        {{"--io-port", "65536", "version"},
         "--io-port takes a number from 1 to 65535, not \"65536\""},
        {{"--mon-port", "4003x", "version"},
         "--mon-port takes a number from 1 to 65535, not \"4003x\""},
        {{"--timeout", "0", "version"},
         "--timeout takes seconds above 0 and up to 86400, not \"0\""},
        {{"--timeout", "-1", "version"},
         "--timeout takes seconds above 0 and up to 86400, not \"-1\""},
        {{"--timeout", "soon", "version"},
         "--timeout takes seconds above 0 and up to 86400, not \"soon\""},
        {{"--timeout", "nan", "version"},
         "--timeout takes seconds above 0 and up to 86400, not \"nan\""},
        {{"--timeout", "1e99", "version"},
         "--timeout takes seconds above 0 and up to 86400, not \"1e99\""},
        {{"--timeout"}, "--timeout: 1 required SECONDS missing (see zoltctl --help)"},
        {{"--host", "", "version"}, "--host is empty"},
        {{"--host=", "version"}, "--host is empty"},
        {{"version", "--timeout="}, "--timeout takes seconds above 0 and up to 86400, not \"\""},
        {{"watch", "--count=", "--for=1"}, "--count takes a number from 1 on, not \"\""},
        {{"watch", "--for", "0"}, "--for takes seconds above 0, not \"0\""},
        {{"watch", "--count", "0"}, "--count takes a number from 1 on, not \"0\""},
        {{"monitor", "--count", "-1"}, "--count takes a number from 1 on, not \"-1\""},
        {{"monitor", "--for", "x"}, "--for takes seconds above 0, not \"x\""},
        {{"raw"}, "cae or io is missing after \"raw\""},
        {{"raw", "mon", "x"}, "\"mon\" is not expected here; expected: cae or io"},
        {{"raw", "cae"}, "LINE is missing after \"raw cae\""},
        {{"raw", "cae", "DRVVER", "more"}, "\"more\" is one argument too many"},
        {{"raw", "io", std::string(254, 'x')},
         "the line is too long: with its end 256 bytes, and the daemon takes 255"},
        {{"speed"}, "PERCENT is missing after \"speed\""},
        {{"speed", "1x"}, "\"1x\" is not a percentage (a number from 1 to 100)"},
        {{"speed", "0"}, "\"0\" is not a percentage (a number from 1 to 100)"},
        {{"speed", "101"}, "\"101\" is not a percentage (a number from 1 to 100)"},
        {{"cards", "3"}, "\"3\" is one argument too many"},
        {{"console", "x"}, "\"x\" is one argument too many"},
    });
}

TEST_F(Usage, CardsAndInputs) {
    // 16 characters, 32 bytes.
    std::string wide;
    for (int i = 0; i < 16; ++i) wide += "\u00E4";
    expectRefused({
        {{"poll", "maybe"}, "\"maybe\" is not a state (on or off)"},
        {{"poll", "on", "G"}, "\"G\" is not an address (one digit, 0 to F)"},
        {{"poll", "on", "10"}, "\"10\" is not an address (one digit, 0 to F)"},
        {{"input"}, "ADDRESS is missing after \"input\""},
        {{"input", "G"}, "\"G\" is not an address (one digit, 0 to F)"},
        {{"input", "3", "G"}, "\"G\" is not a block (one digit, 0 to F)"},
        {{"input", "3", "10"}, "\"10\" is not a block (one digit, 0 to F)"},
        {{"set"}, "ADDRESS is missing after \"set\""},
        {{"set", "5", "1"}, "DATA is missing after \"set 5 1\""},
        {{"set", "5", "10", "FB"}, "\"10\" is not a block (one digit, 0 to F)"},
        {{"set", "5", "1", "FBX"}, "\"FBX\" is not a value for a block (hexadecimal 00 to FF)"},
        {{"set", "5", "1", "100"}, "\"100\" is not a value for a block (hexadecimal 00 to FF)"},
        {{"set", "5", "1", ""}, "\"\" is not a value for a block (hexadecimal 00 to FF)"},
        {{"set", "5", "1", "FB", "more"}, "\"more\" is one argument too many"},
        {{"lcd", "E"}, "clear, light, cursor, blink or text is missing after \"lcd E\""},
        {{"lcd", "E", "shine"},
         "\"shine\" is not expected here; expected: clear, light, cursor, blink or text"},
        {{"lcd", "E", "light"}, "STATE is missing after \"lcd E light\""},
        {{"lcd", "E", "light", "ON"}, "\"ON\" is not a state (on or off)"},
        {{"lcd", "E", "text", "3", "1"}, "TEXT is missing after \"lcd E text 3 1\""},
        {{"lcd", "E", "text", "256", "1", "x"}, "\"256\" is not a column (0 to 255)"},
        {{"lcd", "E", "text", "3", "-1", "x"}, "\"-1\" is not a row (0 to 255)"},
        {{"lcd", "E", "text", "3", "1", "12345678901234567890123456789012"},
         "\"12345678901234567890123456789012\" is not a text for an LCD (at most 31 bytes)"},
        {{"lcd", "E", "text", "3", "1", wide},
         "\"" + wide + "\" is not a text for an LCD (at most 31 bytes)"},
        {{"lcd", "E", "text", "3", "1", "two\r\nlines"},
         "\"aElPAp0301ttwo\\r\\nlines\" holds the IO port's line end, \"\\r\\n\""},
        {{"ir", "9"}, "HEX is missing after \"ir 9\""},
        {{"ir", "9", ""}, "\"\" is not an IR stream (1 to 34 pairs of hexadecimal digits)"},
        {{"ir", "9", "434"}, "\"434\" is not an IR stream (1 to 34 pairs of hexadecimal digits)"},
        {{"ir", "9", "4X"}, "\"4X\" is not an IR stream (1 to 34 pairs of hexadecimal digits)"},
        {{"ir", "9", std::string(70, '0')},
         "\"000000000000000000000000000000000000000000000000000000000000...\" is not an IR stream "
         "(1 to 34 pairs of hexadecimal digits)"},
    });
}

TEST_F(Usage, CardConfiguration) {
    expectRefused({
        {{"config"}, "lcd, analogue, servo, motor or reboot is missing after \"config\""},
        {{"config", "keymatrix", "8"},
         "\"keymatrix\" is not expected here; expected: lcd, analogue, servo, motor or reboot"},
        {{"config", "lcd", "E", "self-test"}, "STATE is missing after \"config lcd E self-test\""},
        {{"config", "lcd", "E", "self-test", "maybe"}, "\"maybe\" is not a state (on or off)"},
        {{"config", "analogue", "F", "mask", "40"}, "\"40\" is not a mask (hexadecimal 00 to 3F)"},
        {{"config", "servo", "0", "end", "C", "channel", "2"}, "\"C\" is not an end (A or B)"},
        {{"config", "servo", "0", "end", "B", "channel", "6"},
         "\"6\" is not a servo channel (0 to 5)"},
        {{"config", "servo", "0", "end", "B", "2"},
         "\"2\" is not expected here; expected: channel"},
        {{"config", "servo", "0", "end", "B", "channel", "2", "100"},
         "\"100\" is not a value (hexadecimal 00 to FF)"},
        {{"config", "motor", "A", "silent-range", "3"}, "\"3\" is not a motor channel (0 to 2)"},
        {{"config", "motor", "A", "silent-range", "2", "21"},
         "\"21\" is not a silent range (hexadecimal 00 to 20)"},
        {{"config", "reboot"}, "ADDRESS is missing after \"config reboot\""},
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
                  "zoltctl: --cae-port takes a number from 1 to 65535, not \"x\"");
    expectOutcome(ctl_test::run({"version"}, {.environment = {"ZOLT_TIMEOUT=x"}}), 2, "",
                  "zoltctl: --timeout takes seconds above 0 and up to 86400, not \"x\"");
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
