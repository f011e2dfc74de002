// The console, by a pipe and on a terminal.
#include <atomic>
#include <filesystem>
#include <functional>

#include "tests/support/text/text_escape.h"
#include "tests/support/wait.h"
#include "tests/zoltctl/fake_test.h"
#include "tests/zoltctl/terminal.h"

namespace {

using namespace ctl_test;

const Replies kAnswers{{"DRVVER\r\n", reply({"CIA: DRIVER VERSION 1.20"})},
                       {"REBOOT:E\r\n", reply({"CIA: Card is REBOOTED", "RBT:0xE:OK"})},
                       {"SPEED=0\r\n", reply({"CIE: Parameter is out of range (1..100)"})},
                       {"DISABLEPOLL\r\n", reply({"CIA: GLOBAL POLLING IS DISABLED"})}};

class ConsoleByPipe : public FakeTest {
  protected:
    static Outcome runWith(const std::string& input, const std::vector<std::string>& options = {}) {
        return ctl_test::run(joined({"console"}, options),
                             {.environment = {"ZOLT_LINE_END=crlf"}, .input = input});
    }
};

TEST_F(ConsoleByPipe, OneCommandPerLine) {
    const FakeTcpPort cae(kDefaultCae, {console(kAnswers), console(kAnswers)});
    const std::string input = "DRVVER\n\nSPEED=0\r\nnonsense\nREBOOT:E";
    expectOutcome(runWith(input), 0,
                  "CIA: DRIVER VERSION 1.20\n"
                  "CIE: Parameter is out of range (1..100)\n"
                  "CIE: UNKNOWN COMMAND \n"
                  "CIA: Card is REBOOTED\nRBT:0xE:OK\n");
    expectOutcome(runWith(input, {"--json"}), 0,
                  R"({"command":"DRVVER","reply":["CIA: DRIVER VERSION 1.20"]})"
                  "\n"
                  R"x({"command":"SPEED=0","reply":["CIE: Parameter is out of range (1..100)"]})x"
                  "\n"
                  R"({"command":"nonsense","reply":["CIE: UNKNOWN COMMAND "]})"
                  "\n"
                  R"({"command":"REBOOT:E","reply":["CIA: Card is REBOOTED","RBT:0xE:OK"]})"
                  "\n");
}

TEST_F(ConsoleByPipe, NothingToDo) {
    const FakeTcpPort cae(kDefaultCae, console(kAnswers));
    expectOutcome(runWith(""), 0, "");
}

// The daemon's own EXIT would stop it for a second.
TEST_F(ConsoleByPipe, ExitLeavesWithoutAskingTheDaemon) {
    const FakeTcpPort cae(kDefaultCae, [](FakeConnection& client) {
        client.send(kConsoleBanner);
        EXPECT_EQ(client.receiveRest(), "");
    });
    expectOutcome(runWith("EXIT\nDRVVER\n"), 0, "");
}

TEST_F(ConsoleByPipe, LinesThatComeUnaskedAreShown) {
    const std::string error = item("COE:Illegal command -> \x1B[2Jx") + item(">");
    const auto script = [&](FakeConnection& client) {
        client.send(kConsoleBanner + error);
        client.expect("DRVVER\r\n");
        client.send(error + reply({"CIA: DRIVER VERSION 1.20"}));
        EXPECT_EQ(client.receiveRest(), "");
    };
    const FakeTcpPort cae(kDefaultCae, {script, script});
    const std::string shown = "COE:Illegal command -> \\x1B[2Jx\n";
    expectOutcome(runWith("DRVVER\n"), 0, shown + shown + "CIA: DRIVER VERSION 1.20\n");
    const std::string unasked = R"({"unasked":"COE:Illegal command -> \u001b[2Jx"})"
                                "\n";
    expectOutcome(
        runWith("DRVVER\n", {"--json"}), 0,
        unasked + unasked + R"({"command":"DRVVER","reply":["CIA: DRIVER VERSION 1.20"]})" + "\n");
}

TEST_F(ConsoleByPipe, TheDaemonsEnd) {
    const FakeTcpPort cae(kDefaultCae, [](FakeConnection& client) {
        client.send(kConsoleBanner);
        client.expect("DRVVER\r\n");
        client.send(reply({"CIA: DRIVER VERSION 1.20"}));
        client.expect("REBOOT:E\r\n");
        client.send(item("CIA: Card is REBOOTED"));
    });
    expectOutcome(runWith("DRVVER\nREBOOT:E\n"), 5, "CIA: DRIVER VERSION 1.20\n",
                  "zoltctl: console 127.0.0.1:4001: the connection ended in mid-answer");
}

TEST_F(ConsoleByPipe, ALineThatIsTooLong) {
    const FakeTcpPort cae(kDefaultCae, console(kAnswers));
    expectOutcome(
        runWith("DRVVER\n" + std::string(300, 'x') + "\nDRVVER\n"), 2, "CIA: DRIVER VERSION 1.20\n",
        "zoltctl: the line is too long: with its end 302 bytes, and the daemon takes 255");
}

class ConsoleOnTerminal : public FakeTest {
  protected:
    // Runs a console there for as long as `person` acts; returns what the daemon
    // was asked, and puts the end of the program into `end_`.
    std::string talk(const std::function<void(Terminal&)>& person) {
        std::string asked;
        const FakeTcpPort cae(kDefaultCae, [&](FakeConnection& client) {
            client.send(kConsoleBanner);
            for (auto line = client.receive(); !line.empty(); line = client.receive()) {
                asked += line;
                hasAsked_ = true;
                support::waitUntil([this] { return !holdsAnswer_; });
                const auto found = kAnswers.find(line);
                client.send(found == kAnswers.end() ? unknownCommand() : found->second);
                if (line == "DISABLEPOLL\r\n") {
                    client.send(item("COE:Illegal command -> x") + item(">"));
                }
            }
        });
        Terminal terminal;
        ZoltctlProcess process({"console"},
                               {.environment = {"ZOLT_LINE_END=crlf", "LSAN_OPTIONS=" + leaks()},
                                .terminal = terminal.inner()});
        if (!terminal.shows("> ")) {
            ADD_FAILURE() << "no prompt: " << terminal.screen();
            return asked;
        }
        person(terminal);
        end_ = process.waitForEnd().end;
        screen_ = support::escapeBytes(terminal.screen());
        return asked;
    }

    // The editing library does not free the name and the description of a function
    // that was added to it.
    static std::string leaks() {
        const std::string file = support::workFolder() / "leaks";
        support::writeFile(file, "leak:wcsdup\n");
        return "suppressions=" + file + ":print_suppressions=0";
    }

    // Set when a line has come; its answer is held back while the other is set.
    std::atomic<bool> hasAsked_ = false;
    std::atomic<bool> holdsAnswer_ = false;
    std::string end_;
    std::string screen_;
};

TEST_F(ConsoleOnTerminal, ShowsRepliesBetweenPrompts) {
    EXPECT_EQ(talk([](Terminal& terminal) {
                  terminal.type(std::string("DRVVER") + kEnter);
                  EXPECT_TRUE(terminal.shows("CIA: DRIVER VERSION 1.20\r\n"));
                  EXPECT_TRUE(terminal.shows("> "));
                  terminal.type(kCtrlD);
              }),
              "DRVVER\r\n")
        << screen_;
    EXPECT_EQ(end_, "status 0") << screen_;
}

TEST_F(ConsoleOnTerminal, LinesAreEdited) {
    EXPECT_EQ(talk([](Terminal& terminal) {
                  terminal.type(std::string("RVVEX") + kBackspace + "R" + kCtrlA + "D" + kEnter);
                  EXPECT_TRUE(terminal.shows("CIA: DRIVER VERSION 1.20\r\n"));
                  terminal.type(std::string("EXIT") + kEnter);
              }),
              "DRVVER\r\n")
        << screen_;
    EXPECT_EQ(end_, "status 0") << screen_;
}

TEST_F(ConsoleOnTerminal, WordsAreCompleted) {
    EXPECT_EQ(talk([](Terminal& terminal) {
                  terminal.type(std::string("DRV") + kTab + kEnter);
                  EXPECT_TRUE(terminal.shows("CIA: DRIVER VERSION 1.20\r\n"));
                  terminal.type(kCtrlD);
              }),
              "DRVVER\r\n")
        << screen_;
    EXPECT_EQ(end_, "status 0") << screen_;
}

TEST_F(ConsoleOnTerminal, HistoryOutlivesTheProgram) {
    EXPECT_EQ(talk([](Terminal& terminal) {
                  terminal.type(std::string("REBOOT:E") + kEnter);
                  EXPECT_TRUE(terminal.shows("RBT:0xE:OK\r\n"));
                  terminal.type(std::string("DRVVER") + kEnter);
                  EXPECT_TRUE(terminal.shows("CIA: DRIVER VERSION 1.20\r\n"));
                  terminal.type(std::string(kUp) + kUp + kEnter);
                  EXPECT_TRUE(terminal.shows("RBT:0xE:OK\r\n"));
                  terminal.type(kCtrlD);
              }),
              "REBOOT:E\r\nDRVVER\r\nREBOOT:E\r\n")
        << screen_;
    EXPECT_EQ(end_, "status 0") << screen_;
    EXPECT_TRUE(std::filesystem::exists(ZoltctlProcess::homeFolder() +
                                        "/.local/state/zolt/console_history"));
    EXPECT_EQ(talk([](Terminal& terminal) {
                  terminal.type(std::string(kUp) + kEnter);
                  EXPECT_TRUE(terminal.shows("RBT:0xE:OK\r\n"));
                  terminal.type(kCtrlD);
              }),
              "REBOOT:E\r\n")
        << screen_;
    EXPECT_EQ(end_, "status 0") << screen_;
}

TEST_F(ConsoleOnTerminal, ALineThatComesUnaskedLeavesTheTypedOneAlone) {
    EXPECT_EQ(talk([](Terminal& terminal) {
                  terminal.type(std::string("DISABLEPOLL") + kEnter + "DRV");
                  EXPECT_TRUE(terminal.shows("COE:Illegal command -> x\r\n"));
                  EXPECT_TRUE(terminal.shows("DRV"));
                  terminal.type(std::string("VER") + kEnter);
                  EXPECT_TRUE(terminal.shows("CIA: DRIVER VERSION 1.20\r\n"));
                  terminal.type(kCtrlD);
              }),
              "DISABLEPOLL\r\nDRVVER\r\n")
        << screen_;
    EXPECT_EQ(end_, "status 0") << screen_;
}

TEST_F(ConsoleOnTerminal, ALineThatIsTooLongCanBeTypedAgain) {
    EXPECT_EQ(talk([](Terminal& terminal) {
                  terminal.type(std::string(300, 'x') + kEnter);
                  EXPECT_TRUE(
                      terminal.shows("zoltctl: the line is too long: with its end 302 "
                                     "bytes, and the daemon takes 255\r\n"));
                  terminal.type(std::string("DRVVER") + kEnter);
                  EXPECT_TRUE(terminal.shows("CIA: DRIVER VERSION 1.20\r\n"));
                  terminal.type(kCtrlD);
              }),
              "DRVVER\r\n")
        << screen_;
    EXPECT_EQ(end_, "status 0") << screen_;
}

TEST_F(ConsoleOnTerminal, AnEndTypedBeforeThePromptCounts) {
    holdsAnswer_ = true;
    EXPECT_EQ(talk([this](Terminal& terminal) {
                  terminal.type(std::string("DRVVER") + kEnter);
                  EXPECT_TRUE(support::waitUntil([this] { return hasAsked_.load(); }));
                  terminal.type(kCtrlD);
                  holdsAnswer_ = false;
                  EXPECT_TRUE(terminal.shows("CIA: DRIVER VERSION 1.20\r\n"));
              }),
              "DRVVER\r\n")
        << screen_;
    EXPECT_EQ(end_, "status 0") << screen_;
}

TEST_F(ConsoleOnTerminal, CtrlCEndsIt) {
    talk([](Terminal& terminal) { terminal.type(std::string("DRV") + kCtrlC); });
    EXPECT_EQ(end_, "signal 2") << screen_;
}

TEST_F(ConsoleOnTerminal, AWindowThatIsClosedEndsIt) {
    talk([](Terminal& terminal) { terminal.hangUp(); });
    EXPECT_EQ(end_, "signal 1") << screen_;
}

}  // namespace
