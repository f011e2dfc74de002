// Each command once against the real daemon: what it prints, and what reaches the
// card.
#include "tests/zoltctl/daemon_test.h"

namespace {

struct DaemonCommand {
    const char* name;
    std::vector<std::string> arguments;
    std::string output;
    /// Lines of the simulated bus's trace, without their times.
    std::vector<std::string> trace = {};
};

void PrintTo(const DaemonCommand& command, std::ostream* stream) {
    *stream << command.name;
}

std::string nameOfCommand(const ::testing::TestParamInfo<DaemonCommand>& command) {
    return command.param.name;
}

// A daemon of its own for each: a port that has just been used would keep the next
// command waiting for as long as a new daemon takes.
class DaemonCommands : public DaemonTest, public ::testing::WithParamInterface<DaemonCommand> {};

TEST_P(DaemonCommands, Work) {
    start();
    EXPECT_EQ(outputOf(GetParam().arguments), GetParam().output);
    for (const std::string& line : GetParam().trace) {
        EXPECT_TRUE(reached(line)) << line << "\n" << sim_->traceTail(10);
    }
}

TEST_F(DaemonTest, ConsoleAsJson) {
    start();
    const auto outcome =
        ctl_test::run({"--json", "console"}, {.input = "DRVVER\nREBOOT:9\nnonsense\n"});
    EXPECT_EQ(outcome.end, "status 0");
    EXPECT_EQ(outcome.errors, "");
    EXPECT_EQ(outcome.output,
              R"({"command":"DRVVER","reply":["CIA: DRIVER VERSION 1.20"]})"
              "\n"
              R"({"command":"REBOOT:9","reply":["CIA: Card is REBOOTED","RBT:0x9:OK"]})"
              "\n"
              R"({"command":"nonsense","reply":["CIE: UNKNOWN COMMAND "]})"
              "\n");
}

TEST_F(DaemonTest, ABlockThatTheCardDoesNotHave) {
    start();
    const auto outcome = ctl_test::run({"--json", "set", "5", "F", "FB"});
    EXPECT_EQ(outcome.end, "status 1");
    EXPECT_EQ(outcome.output, "");
    EXPECT_EQ(outcome.errors, "zoltctl: card 5 has blocks 0 to 1\n");
}

constexpr const char* kTable =
    "0  6 channel RC SERVO CONTROLLER\n1  EMPTY\n2  EMPTY\n3  16 channel DIGITAL INPUT\n"
    "4  EMPTY\n5  16 channel DIGITAL OUTPUT\n6  EMPTY\n7  EMPTY\n8  KEYMX and ROTE CONTROLLER\n"
    "9  IR REMOTE CONTROLLER\nA  3 channel DC MOTOR CONTROLLER\nB  EMPTY\nC  EMPTY\nD  EMPTY\n"
    "E  ALPHANUMERIC LCD CONTROLLER\nF  6 channel ANALOGUE INPUT\n";

constexpr const char* kTableJson =
    R"([{"address":"0","kind":"6 channel RC SERVO CONTROLLER"},{"address":"1","kind":"EMPTY"},)"
    R"({"address":"2","kind":"EMPTY"},{"address":"3","kind":"16 channel DIGITAL INPUT"},)"
    R"({"address":"4","kind":"EMPTY"},{"address":"5","kind":"16 channel DIGITAL OUTPUT"},)"
    R"({"address":"6","kind":"EMPTY"},{"address":"7","kind":"EMPTY"},)"
    R"({"address":"8","kind":"KEYMX and ROTE CONTROLLER"},)"
    R"({"address":"9","kind":"IR REMOTE CONTROLLER"},)"
    R"({"address":"A","kind":"3 channel DC MOTOR CONTROLLER"},{"address":"B","kind":"EMPTY"},)"
    R"({"address":"C","kind":"EMPTY"},{"address":"D","kind":"EMPTY"},)"
    R"({"address":"E","kind":"ALPHANUMERIC LCD CONTROLLER"},)"
    R"({"address":"F","kind":"6 channel ANALOGUE INPUT"}])"
    "\n";

INSTANTIATE_TEST_SUITE_P(
    CardsAndDaemon, DaemonCommands,
    ::testing::Values(
        DaemonCommand{"cards",
                      {"cards"},
                      "0  6 channel RC SERVO CONTROLLER\n3  16 channel DIGITAL INPUT\n"
                      "5  16 channel DIGITAL OUTPUT\n8  KEYMX and ROTE CONTROLLER\n"
                      "9  IR REMOTE CONTROLLER\nA  3 channel DC MOTOR CONTROLLER\n"
                      "E  ALPHANUMERIC LCD CONTROLLER\nF  6 channel ANALOGUE INPUT\n"},
        DaemonCommand{"cards_json", {"--json", "cards", "--all"}, kTableJson},
        DaemonCommand{"cards_all", {"cards", "--all"}, kTable},
        DaemonCommand{"discover", {"discover"}, kTable},
        DaemonCommand{"discover_force", {"discover", "--force"}, kTable},
        DaemonCommand{"poll", {"poll"}, "global polling is off\n3  on\n8  on\nF  on\n"},
        DaemonCommand{"poll_on", {"poll", "on"}, "global polling is on\n", {"host> 03 | 20 03 02"}},
        DaemonCommand{"poll_off", {"--json", "poll", "off"}, "{\"global\":false}\n"},
        DaemonCommand{"poll_off_addresses",
                      {"poll", "off", "3", "f"},
                      "card 3: polling is off\ncard F: polling is off\n"},
        DaemonCommand{"poll_on_address",
                      {"poll", "on", "8", "--json"},
                      "[{\"address\":\"8\",\"polling\":true}]\n"},
        DaemonCommand{"speed", {"speed", "90"}, "speed is 90%\n"},
        DaemonCommand{"version", {"version"}, "driver version 1.20\n"},
        DaemonCommand{"raw_cae",
                      {"raw", "cae", "REBOOT:9"},
                      "CIA: Card is REBOOTED\nRBT:0x9:OK\n",
                      {"host> 04 | 50 09 01 AB", "card 9 ir: rebooted"}},
        DaemonCommand{"raw_io",
                      {"raw", "io", "a5b1dFB"},
                      "",
                      {"host> 05 | 10 05 02 FF FB", "card 5 digital-output: FF FB"}}),
    nameOfCommand);

INSTANTIATE_TEST_SUITE_P(
    Outputs, DaemonCommands,
    ::testing::Values(DaemonCommand{"set_output",
                                    {"set", "5", "1", "FB"},
                                    "card 5: block 1 is FB\n",
                                    {"host> 05 | 10 05 02 FF FB", "card 5 digital-output: FF FB"}},
                      DaemonCommand{"set_servo",
                                    {"set", "0", "4", "20"},
                                    "card 0: block 4 is 20\n",
                                    {"host> 09 | 10 00 06 80 80 80 80 20 80"}},
                      DaemonCommand{"set_motor_unchecked",
                                    {"--no-check", "--json", "set", "a", "0", "f"},
                                    "{\"address\":\"A\",\"block\":0,\"value\":15,\"hex\":\"0F\","
                                    "\"checked\":false}\n",
                                    {"host> 07 | 10 0A 04 0F 00 00 00"}},
                      DaemonCommand{"lcd_clear",
                                    {"lcd", "E", "clear"},
                                    "card E: cleared\n",
                                    {"host> 04 | 10 0E 01 00", "card E lcd: cleared"}},
                      DaemonCommand{"lcd_light_on",
                                    {"lcd", "E", "light", "on"},
                                    "card E: light is on\n",
                                    {"card E lcd: light on"}},
                      DaemonCommand{"lcd_light_off",
                                    {"--json", "lcd", "E", "light", "off"},
                                    R"({"address":"E","action":"light","on":false,"checked":true})"
                                    "\n",
                                    {"card E lcd: light off"}},
                      DaemonCommand{"lcd_cursor_on",
                                    {"lcd", "E", "cursor", "on"},
                                    "card E: cursor is on\n",
                                    {"card E lcd: cursor on"}},
                      DaemonCommand{"lcd_cursor_off",
                                    {"lcd", "E", "cursor", "off"},
                                    "card E: cursor is off\n",
                                    {"card E lcd: cursor off"}},
                      DaemonCommand{"lcd_blink_on",
                                    {"lcd", "E", "blink", "on"},
                                    "card E: blink is on\n",
                                    {"card E lcd: blink on"}},
                      DaemonCommand{"lcd_blink_off",
                                    {"lcd", "e", "blink", "off"},
                                    "card E: blink is off\n",
                                    {"card E lcd: blink off"}},
                      DaemonCommand{"lcd_text",
                                    {"lcd", "E", "text", "3", "1", "Tail of the cat"},
                                    "card E: text at column 3, row 1\n",
                                    {"card E lcd: text at column 3 row 1 \"Tail of the cat\""}},
                      DaemonCommand{"lcd_text_json",
                                    {"lcd", "E", "text", "0", "0", "cat", "--json"},
                                    R"({"address":"E","action":"text","column":0,"row":0,)"
                                    R"("text":"cat","checked":true})"
                                    "\n",
                                    {"card E lcd: text at column 0 row 0 \"cat\""}},
                      DaemonCommand{"ir_json",
                                    {"ir", "9", "434f", "--json"},
                                    R"({"address":"9","bytes":2,"hex":"434F","checked":true})"
                                    "\n",
                                    {"card 9 ir: stream 43 4F"}},
                      DaemonCommand{"ir",
                                    {"ir", "9", "434F434B524F414348"},
                                    "card 9: 9 bytes are sent\n",
                                    {"card 9 ir: stream 43 4F 43 4B 52 4F 41 43 48"}}),
    nameOfCommand);

INSTANTIATE_TEST_SUITE_P(
    CardConfiguration, DaemonCommands,
    ::testing::Values(
        DaemonCommand{"lcd_self_test",
                      {"config", "lcd", "E", "self-test", "on"},
                      "card E: self-test at start is on\n",
                      {"host> 05 | 50 0E 01 01 FF", "card E lcd: self-test FF"}},
        DaemonCommand{"lcd_light",
                      {"--json", "config", "lcd", "E", "light", "on"},
                      "{\"address\":\"E\",\"command\":\"lcd light\",\"on\":true}\n",
                      {"host> 05 | 50 0E 01 02 FF", "card E lcd: light at boot FF"}},
        DaemonCommand{"analogue_mask",
                      {"config", "analogue", "F", "mask"},
                      "card F: mask is 3F\n",
                      {"host> 04 | 50 0F 40 01"}},
        DaemonCommand{"analogue_mask_set",
                      {"--json", "config", "analogue", "F", "mask", "2a"},
                      R"({"address":"F","command":"analogue mask","value":42,"hex":"2A"})"
                      "\n",
                      {"host> 05 | 50 0F 01 01 2A", "card F analogue-input: mask 2A"}},
        DaemonCommand{"analogue_store",
                      {"config", "analogue", "F", "store"},
                      "card F: mask is stored\n",
                      {"host> 04 | 50 0F 01 02", "card F analogue-input: mask 3F stored"}},
        DaemonCommand{"servo_end",
                      {"--json", "config", "servo", "0", "end", "B", "channel", "5"},
                      R"({"address":"0","command":"servo end","end":"B","channel":5,"value":255,)"
                      R"("hex":"FF"})"
                      "\n",
                      {"host> 04 | 50 00 40 2C"}},
        DaemonCommand{"servo_end_set",
                      {"config", "servo", "0", "end", "B", "channel", "2", "80"},
                      "card 0: servo end B, channel 2 is 80\n",
                      {"host> 05 | 50 00 01 D2 80", "card 0 servo: end B of channel 2 80"}},
        DaemonCommand{"servo_store",
                      {"--json", "config", "servo", "0", "store"},
                      "{\"address\":\"0\",\"command\":\"servo store\"}\n",
                      {"card 0 servo: positions 80 80 80 80 80 80 stored"}},
        DaemonCommand{"servo_restore",
                      {"config", "servo", "0", "restore"},
                      "card 0: servos are moved to the stored positions\n",
                      {"card 0 servo: moved to stored positions 80 80 80 80 80 80"}},
        DaemonCommand{"motor_range",
                      {"--json", "config", "motor", "A", "silent-range", "2"},
                      R"({"address":"A","command":"motor silent-range","channel":2,"value":0,)"
                      R"("hex":"00"})"
                      "\n",
                      {"host> 04 | 50 0A 40 03"}},
        DaemonCommand{"motor_range_set",
                      {"config", "motor", "A", "silent-range", "2", "10"},
                      "card A: silent range of channel 2 is 10\n",
                      {"host> 05 | 50 0A 01 C2 10", "card A motor: silent range of channel 2 10"}},
        DaemonCommand{"motor_store",
                      {"config", "motor", "A", "store", "--json"},
                      "{\"address\":\"A\",\"command\":\"motor store\"}\n",
                      {"host> 04 | 50 0A 01"}},
        DaemonCommand{"reboot",
                      {"config", "reboot", "E"},
                      "card E: rebooted\n",
                      {"host> 04 | 50 0E 01 AB", "card E lcd: rebooted"}}),
    nameOfCommand);

}  // namespace
