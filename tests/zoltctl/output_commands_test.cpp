// set, lcd, ir and raw io: commands that the daemon answers only when it refuses
// them, and then on the console.
#include "tests/zoltctl/commands_test.h"

namespace {

using namespace ctl_test;

class OutputCommands : public CommandTest {
  protected:
    const std::vector<std::string> version_{"CIA: DRIVER VERSION 1.20"};
    // Which card is there, and whether anything was refused.
    const Dialogue checks_{{"DISCOVER", cardList("DISCOVER LIST:")}, {"DRVVER", version_}};
    const std::vector<CommandRow> rows_{
        {{"set", "5", "1", "FB"},
         checks_,
         "card 5: block 1 is FB\n",
         R"({"address":"5","block":1,"value":251,"hex":"FB","checked":true})",
         "a5b1dFB\r\n"},
        {{"set", "a", "3", "7"},
         checks_,
         "card A: block 3 is 07\n",
         R"({"address":"A","block":3,"value":7,"hex":"07","checked":true})",
         "aAb3d07\r\n"},
        {{"set", "0", "5", "7f"},
         checks_,
         "card 0: block 5 is 7F\n",
         R"({"address":"0","block":5,"value":127,"hex":"7F","checked":true})",
         "a0b5d7F\r\n"},
        {{"lcd", "E", "clear"},
         checks_,
         "card E: cleared\n",
         R"({"address":"E","action":"clear","checked":true})",
         "aElCL\r\n"},
        {{"lcd", "E", "light", "on"},
         checks_,
         "card E: light is on\n",
         R"({"address":"E","action":"light","on":true,"checked":true})",
         "aElLO\r\n"},
        {{"lcd", "E", "light", "off"},
         checks_,
         "card E: light is off\n",
         R"({"address":"E","action":"light","on":false,"checked":true})",
         "aElLF\r\n"},
        {{"lcd", "E", "cursor", "on"},
         checks_,
         "card E: cursor is on\n",
         R"({"address":"E","action":"cursor","on":true,"checked":true})",
         "aElCO\r\n"},
        {{"lcd", "E", "cursor", "off"},
         checks_,
         "card E: cursor is off\n",
         R"({"address":"E","action":"cursor","on":false,"checked":true})",
         "aElCF\r\n"},
        {{"lcd", "E", "blink", "on"},
         checks_,
         "card E: blink is on\n",
         R"({"address":"E","action":"blink","on":true,"checked":true})",
         "aElBO\r\n"},
        {{"lcd", "E", "blink", "off"},
         checks_,
         "card E: blink is off\n",
         R"({"address":"E","action":"blink","on":false,"checked":true})",
         "aElBF\r\n"},
        {{"lcd", "E", "text", "3", "1", "Tail of the cat"},
         checks_,
         "card E: text at column 3, row 1\n",
         R"({"address":"E","action":"text","column":3,"row":1,"text":"Tail of the cat","checked":true})",
         "aElPAp0301tTail of the cat\r\n"},
        {{"lcd", "E", "text", "19", "0", "1234567890123456789012345678901"},
         checks_,
         "card E: text at column 19, row 0\n",
         R"({"address":"E","action":"text","column":19,"row":0,"text":"1234567890123456789012345678901","checked":true})",
         "aElPAp1300t1234567890123456789012345678901\r\n"},
        {{"ir", "9", "434f434B"},
         checks_,
         "card 9: 4 bytes are sent\n",
         R"({"address":"9","bytes":4,"hex":"434F434B","checked":true})",
         "a9sHS434F434B\r\n"},
    };
};

TEST_F(OutputCommands, AreCheckedOnTheConsole) {
    expectRows(rows_);
}

TEST_F(OutputCommands, DoWithoutTheConsoleWithNoCheck) {
    for (CommandRow row : rows_) {
        SCOPED_TRACE(row.json);
        row.dialogue.clear();
        const FakeTcpPort io(kDefaultIo, {ioPort(row.io), ioPort(row.io)});
        row.text.insert(row.text.size() - 1, " (unchecked)");
        expectOutcome(run(joined({"--no-check"}, row.arguments)), 0, row.text);
        const auto checked = row.json.find("true}", row.json.find("checked"));
        row.json.replace(checked, 4, "false");
        expectOutcome(run(joined({"--no-check", "--json"}, row.arguments)), 0, row.json + "\n");
    }
}

TEST_F(OutputCommands, RawIoIsSentAsItIs) {
    const FakeTcpPort io(kDefaultIo, {ioPort("nonsense\r\n"), ioPort("nonsense\r\n")});
    expectOutcome(run({"raw", "io", "nonsense"}), 0, "");
    expectOutcome(run({"--json", "raw", "io", "nonsense"}), 0, "{\"delivered\":\"nonsense\"}\n");
}

TEST_F(OutputCommands, UncheckedAnyBlockIsSent) {
    const FakeTcpPort io(kDefaultIo, ioPort("aAbFd07\r\n"));
    expectOutcome(run({"--no-check", "set", "a", "f", "7"}), 0,
                  "card A: block 15 is 07 (unchecked)\n");
}

TEST_F(OutputCommands, ACardThatDoesNotFitIsRefusedBeforeAnythingIsSent) {
    struct Row {
        std::vector<std::string> arguments;
        std::string reason;
    };
    for (const Row& row : std::vector<Row>{
             {{"set", "1", "1", "FB"},
              "card 1 is EMPTY; set needs a digital output card, an RC servo card or a DC motor "
              "card"},
             {{"set", "3", "1", "FB"},
              "card 3 is 16 channel DIGITAL INPUT; set needs a digital output card, an RC servo "
              "card or a DC motor card"},
             {{"set", "5", "2", "FB"}, "card 5 has blocks 0 to 1"},
             {{"set", "0", "6", "FB"}, "card 0 has blocks 0 to 5"},
             {{"set", "A", "4", "FB"}, "card A has blocks 0 to 3"},
             {{"set", "A", "F", "FB"}, "card A has blocks 0 to 3"},
             {{"lcd", "9", "clear"},
              "card 9 is IR REMOTE CONTROLLER; lcd needs an LCD controller card"},
             {{"ir", "7", "00"},
              "card 7 is UNIDENTIFIED; ir needs an IR remote controller card"}}) {
        const FakeTcpPort cae(kDefaultCae, playing({checks_[0]}));
        expectOutcome(run(row.arguments), 1, "", "zoltctl: " + row.reason);
    }
}

TEST_F(OutputCommands, ARefusalThatComesOnTheConsoleIsReported) {
    const auto refusing = [&](const std::string& refused) {
        return [&, refused](FakeConnection& client) {
            client.send(kConsoleBanner);
            client.expect("DISCOVER\r\n");
            client.send(reply(checks_[0].second));
            client.expect("DRVVER\r\n");
            client.send(item("COE:Illegal command -> " + refused) + item(">") + reply(version_));
            client.keepSilent();
        };
    };
    {
        const FakeTcpPort cae(kDefaultCae, refusing("a5b1dFB"));
        const FakeTcpPort io(kDefaultIo, ioPort("a5b1dFB\r\n"));
        expectOutcome(run({"set", "5", "1", "FB"}), 1, "",
                      "zoltctl: COE:Illegal command -> a5b1dFB");
    }
    // A refusal of another line is not one of this command.
    const FakeTcpPort cae(kDefaultCae, refusing("zzz"));
    const FakeTcpPort io(kDefaultIo, ioPort("a5b1dFB\r\n"));
    expectOutcome(run({"set", "5", "1", "FB"}), 0, "card 5: block 1 is FB\n");
}

// Unread reports must not prevent the delivery of the command.
TEST_F(OutputCommands, ReportsMayComeMeanwhile) {
    std::string reports;
    for (int i = 0; i < 20000; ++i) reports += item("a3b0d40");
    const FakeTcpPort io(kDefaultIo, [&](FakeConnection& client) {
        client.send(kIoBanner);
        client.send(reports);
        EXPECT_EQ(client.receiveRest(), "a5b1dFB\r\n");
        client.send(reports);
    });
    expectOutcome(run({"--no-check", "set", "5", "1", "FB"}), 0,
                  "card 5: block 1 is FB (unchecked)\n");
}

TEST_F(OutputCommands, AResetIsNoDelivery) {
    const FakeTcpPort io(kDefaultIo, [&](FakeConnection& client) {
        client.send(kIoBanner);
        client.awaitUnread();
    });
    expectOutcome(run({"--no-check", "set", "5", "1", "FB"}), 5, "",
                  "zoltctl: IO 127.0.0.1:4002: the connection ended before the line was read");
}

TEST_F(OutputCommands, ADaemonThatDoesNotReadTheCommandIsATimeOut) {
    const FakeTcpPort io(kDefaultIo, [&](FakeConnection& client) {
        client.send(kIoBanner);
        client.receiveRest();
        client.hold();
    });
    expectOutcome(run({"--no-check", "--timeout", "0.3", "set", "5", "1", "FB"}), 6, "",
                  "zoltctl: IO 127.0.0.1:4002 does not take the line in time "
                  "(--timeout)");
}

}  // namespace
