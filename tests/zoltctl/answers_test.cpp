// Answers that break off, never come, or do not look like zolt.
#include "tests/zoltctl/fake_test.h"

namespace {

using namespace ctl_test;

// Answers the one command with `bytes` and then does as `afterwards` says.
FakeTcpPort::Script answering(const std::string& command, const std::string& bytes,
                              FakeTcpPort::Script afterwards) {
    return [=](FakeConnection& client) {
        client.send(kConsoleBanner);
        client.expect(command + "\r\n");
        client.send(bytes);
        afterwards(client);
    };
}

void hold(FakeConnection& client) {
    client.keepSilent();
}
void leave(FakeConnection&) {}

class Answers : public FakeTest {};

TEST_F(Answers, AConnectionThatEndsInMidAnswer) {
    struct Row {
        std::string sent;
        std::string when;
    };
    const std::vector<Row> rows{
        {"", "before the answer"},
        {"DISCOV", "in mid-answer"},
        {item("DISCOVER LIST:"), "in mid-answer"},
        {item("DISCOVER LIST:") + item("DTI:0x0:EMPTY") + "DTI:0x1:6 chan", "in mid-answer"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.sent);
        const FakeTcpPort cae(kDefaultCae, answering("DISCOVER", row.sent, leave));
        expectOutcome(run({"cards"}), 5, "",
                      "zoltctl: console 127.0.0.1:4001: the connection ended " + row.when);
    }
}

TEST_F(Answers, AnAnswerThatDoesNotComeOrNotWholly) {
    for (const std::string& sent :
         {std::string(), std::string("CIA: DRIVER VER"), item("CIA: DRIVER VERSION 1.20"),
          // The prompt lacks the carriage return of every item.
          item("CIA: DRIVER VERSION 1.20") + ">\r\n",
          std::string("CIA: DRIVER VERSION 1.20\r\n>\r\n")}) {
        SCOPED_TRACE(sent);
        const FakeTcpPort cae(kDefaultCae, answering("DRVVER", sent, hold));
        expectOutcome(run({"--timeout", "0.3", "version"}), 6, "",
                      "zoltctl: console 127.0.0.1:4001 does not answer DRVVER in time "
                      "(--timeout)");
    }
}

TEST_F(Answers, OfAnotherCommandOrRubbish) {
    struct Row {
        std::vector<std::string> arguments;
        std::string command;
        std::string sent;
        std::string quoted;
    };
    const std::string list = reply({"DISCOVER LIST:", "DTI:0x0:EMPTY"});
    const std::vector<Row> rows{
        {{"version"},
         "DRVVER",
         reply({"CIA: GLOBAL POLLING IS ENABLED"}),
         "\"CIA: GLOBAL POLLING IS ENABLED\""},
        {{"version"}, "DRVVER", reply({}), "\"\""},
        {{"version"}, "DRVVER", reply({"\x01\x1B[2J\x9B"}), "\"\\x01\\x1B[2J\\x9B\""},
        {{"version"},
         "DRVVER",
         reply({"CIA: DRIVER VERSION 1.20", "more"}),
         "\"CIA: DRIVER VERSION 1.20\\nmore\""},
        {{"speed", "50"},
         "SPEED=50",
         reply({"CIA: SPEED IS SET to 49%"}),
         "\"CIA: SPEED IS SET to 49%\""},
        {{"cards"}, "DISCOVER", list, "\"DISCOVER LIST:\\nDTI:0x0:EMPTY\""},
        {{"discover", "--force"}, "FORCEDISCOVER", list, "\"DISCOVER LIST:\\nDTI:0x0:EMPTY\""},
        {{"poll"},
         "POLLSTATE",
         reply({"CIA: GLOBAL POLLING IS ENABLED", "PTI:0x3:MAYBE"}),
         "\"PTI:0x3:MAYBE\""},
        {{"config", "motor", "A", "silent-range", "2"},
         "GETMSR2:A",
         reply({"CIA: MSR value is GOT from card", "MSR1:0xA:0x10"}),
         "\"CIA: MSR value is GOT from card\\nMSR1:0xA:0x10\""},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.quoted);
        const FakeTcpPort cae(kDefaultCae, answering(row.command, row.sent, hold));
        expectOutcome(
            run(row.arguments), 7, "",
            "zoltctl: the answer to " + row.command + " does not look like zolt: " + row.quoted);
    }
}

TEST_F(Answers, InSingleBytes) {
    const FakeTcpPort cae(kDefaultCae, [](FakeConnection& client) {
        client.send(kConsoleBanner);
        client.expect("POLLSTATE\r\n");
        client.sendSingly(reply({"CIA: GLOBAL POLLING IS DISABLED", "PTI:0x3:ON", "PTI:0xF:OFF"}));
        client.keepSilent();
    });
    expectOutcome(run({"poll"}), 0, "global polling is off\n3  on\nF  off\n");
}

// Nothing that comes without an end is kept, or waited for, without an end.
TEST_F(Answers, AnEndlessAnswerIsGivenUpWithBoundedMemory) {
    struct Row {
        std::string command;
        std::string repeated;
    };
    std::string items;
    while (items.size() < 65536) items += item("DTI:0x0:EMPTY");
    for (const Row& row : {Row{"one line", std::string(65536, 'x')}, Row{"many items", items}}) {
        SCOPED_TRACE(row.command);
        const FakeTcpPort cae(kDefaultCae, answering("DISCOVER", "", [&](FakeConnection& client) {
                                  client.flood(row.repeated);
                              }));
        const auto outcome = ctl_test::run(
            {"--timeout", "1", "cards"},
            {.environment = {"ZOLT_LINE_END=crlf", "ASAN_OPTIONS=quarantine_size_mb=16"}});
        EXPECT_EQ(outcome.end, "status 7");
        EXPECT_EQ(outcome.output, "");
        EXPECT_EQ(support::splitLines(outcome.errors).size(), 1U);
        EXPECT_LT(outcome.errors.size(), 300U);
    }
    EXPECT_LT(largestChildKilobytes(), 200'000);
}

TEST_F(Answers, RefusalsAreTheDaemonsOwnWords) {
    struct Row {
        std::vector<std::string> arguments;
        std::string command;
        std::string words;
        std::string about = {};
    };
    const std::vector<Row> rows{
        {{"poll", "on", "5"}, "POLLON:5", "CIE: THIS COMMAND IS VALID ON INPUT CARDS", "card 5: "},
        {{"config", "reboot", "7"}, "REBOOT:7", "CIE: BUS WRITE ERROR"},
        {{"config", "motor", "E", "silent-range", "2"},
         "GETMSR2:E",
         "CIE: THIS COMMAND IS VALID ON DC MOTOR CONTROLLER CARD ONLY"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.command);
        const FakeTcpPort cae(kDefaultCae, answering(row.command, reply({row.words}), hold));
        expectOutcome(run(row.arguments), 1, "", "zoltctl: " + row.about + row.words);
    }
}

TEST_F(Answers, LinesThatComeUnaskedAreNoReply) {
    const std::string unasked = item("COE:Illegal command -> nonsense") + item(">");
    const FakeTcpPort cae(kDefaultCae, [&](FakeConnection& client) {
        client.send(kConsoleBanner);
        client.send(unasked);
        client.expect("DRVVER\r\n");
        client.send(unasked + unasked + reply({"CIA: DRIVER VERSION 1.20"}) + unasked);
        client.keepSilent();
    });
    expectOutcome(run({"version"}), 0, "driver version 1.20\n");
}

}  // namespace
