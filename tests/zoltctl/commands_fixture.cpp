#include "tests/zoltctl/commands_test.h"

using namespace ctl_test;

namespace {

const std::vector<std::string> kKinds{"6 channel RC SERVO CONTROLLER",
                                      "EMPTY",
                                      "EMPTY",
                                      "16 channel DIGITAL INPUT",
                                      "EMPTY",
                                      "16 channel DIGITAL OUTPUT",
                                      "EMPTY",
                                      "UNIDENTIFIED",
                                      "KEYMX and ROTE CONTROLLER",
                                      "IR REMOTE CONTROLLER",
                                      "3 channel DC MOTOR CONTROLLER",
                                      "EMPTY",
                                      "EMPTY",
                                      "EMPTY",
                                      "ALPHANUMERIC LCD CONTROLLER",
                                      "6 channel ANALOGUE INPUT"};

}  // namespace

FakeTcpPort::Script CommandTest::playing(const Dialogue& dialogue) {
    return [dialogue](FakeConnection& client) {
        client.send(kConsoleBanner);
        for (const auto& [command, lines] : dialogue) {
            client.expect(command + "\r\n");
            client.send(reply(lines));
        }
        EXPECT_EQ(client.receiveRest(), "");
    };
}

Outcome CommandTest::runRow(const CommandRow& row, const std::vector<std::string>& options) {
    const FakeTcpPort cae(kDefaultCae, playing(row.dialogue));
    const FakeTcpPort io(kDefaultIo, [&](FakeConnection& client) {
        client.send(kIoBanner + row.fromIo);
        EXPECT_EQ(client.receiveRest(), row.io);
    });
    return run(joined(options, row.arguments));
}

void CommandTest::expectRows(const std::vector<CommandRow>& rows) {
    for (const CommandRow& row : rows) {
        SCOPED_TRACE(row.json);
        expectOutcome(runRow(row, {}), 0, row.text);
        expectOutcome(runRow(row, {"--json"}), 0, row.json.empty() ? "" : row.json + "\n");
    }
}

std::string CommandTest::addressOf(std::size_t index) {
    return std::string(1, "0123456789ABCDEF"[index]);
}

std::vector<std::string> CommandTest::cardList(const std::string& heading) {
    std::vector<std::string> lines{heading};
    for (std::size_t i = 0; i < kKinds.size(); ++i) {
        lines.push_back("DTI:0x" + addressOf(i) + ":" + kKinds[i]);
    }
    return lines;
}

std::string CommandTest::cardText(bool all) {
    std::string text;
    for (std::size_t i = 0; i < kKinds.size(); ++i) {
        if (all || kKinds[i] != "EMPTY") text += addressOf(i) + "  " + kKinds[i] + "\n";
    }
    return text;
}

std::string CommandTest::cardJson(bool all) {
    std::string text;
    for (std::size_t i = 0; i < kKinds.size(); ++i) {
        if (!all && kKinds[i] == "EMPTY") continue;
        text += text.empty() ? "[" : ",";
        text += "{\"address\":\"" + addressOf(i) + "\",\"kind\":\"" + kKinds[i] + "\"}";
    }
    return text + "]";
}
