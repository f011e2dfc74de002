#include "control/console.h"

#include "bus/card_kinds.h"
#include "tests/unit/control/console_fixture.h"

namespace {

/// The bus has an input card at 3 and a servo controller at 4.
class ConsoleLines : public ConsoleFixture {
  protected:
    ConsoleLines() {
        host_.addCard(3, card_kind::kDigitalInput);
        host_.addCard(4, card_kind::kServo);
    }

    /// What a text causes at a console with these separators.
    Events eventsWith(const std::string& input, const std::string& output,
                      const std::string& text) {
        Console console(host_, input, output);
        console.interpret(text);
        return host_.takeEvents();
    }
};

TEST_F(ConsoleLines, AnUnknownLineIsOneReplyWithThePromptInside) {
    for (const char* line : {"VALAMI", "", " ", "xyz", ">", ":", "=", ":=", "CIE: UNKNOWN COMMAND",
                             "SPEED", "SPEED 50", "POLLON", "POLLOFF 3", "GETLASTINPST"}) {
        EXPECT_EQ(eventsOf(line), Events{kUnknownCommand}) << line;
    }
    EXPECT_EQ(eventsOfText(""), Events{kUnknownCommand});
    EXPECT_EQ(eventsOfText("\n\r"), Events{kUnknownCommand});
}

TEST_F(ConsoleLines, ExactCommandsTolerateNothing) {
    for (const std::string word : {"DISABLEPOLL", "DRVVER", "ENABLEPOLL", "POLLSTATE", "DISCOVER",
                                   "FORCEDISCOVER", "EXIT", "HELP", "IOEXAMPLES"}) {
        std::string lower;
        for (const char c : word) lower += static_cast<char>(c + ('a' - 'A'));
        for (const std::string& text :
             {word, word + " \r\n", " " + word + "\r\n", word + "\n", word + "\r", word + "\n\r",
              word + "\r\n\r\n", word + "\r\n ", "\r\n" + word, lower + "\r\n", word + ":\r\n",
              word + "=\r\n", word + word + "\r\n", word.substr(1) + "\r\n"}) {
            EXPECT_EQ(eventsOfText(text), Events{kUnknownCommand}) << text;
        }
        EXPECT_NE(eventsOf(word), Events{kUnknownCommand}) << word;
        EXPECT_NE(eventsOf(word).back(), kUnknownCommand) << word;
    }
}

TEST_F(ConsoleLines, ContainsCommandsStandAnywhereButNeedTheWholeSeparator) {
    const Events on = repliesAndPrompt({"CIA: POLLON is OK at address 3"});
    EXPECT_EQ(eventsOf("POLLON:3"), on);
    EXPECT_EQ(eventsOf("  POLLON:3"), on);
    EXPECT_EQ(eventsOf("xPOLLON:3yz"), on);
    EXPECT_EQ(eventsOfText("\r\nPOLLON:3"), on);
    EXPECT_EQ(eventsOfText("POLLON:3\r\nmore"), on);
    for (const char* text : {"POLLON:3", "POLLON:3\n", "POLLON:3\r", "POLLON:3\n\r", "pollon:3\r\n",
                             "POLLON :3\r\n"}) {
        EXPECT_EQ(eventsOfText(text), Events{kUnknownCommand}) << text;
    }
}

TEST_F(ConsoleLines, OneLineMayRunSeveralCommandsInTableOrder) {
    EXPECT_EQ(eventsOf("POLLON:3 SPEED=100"),
              (Events{"delay 1", replyEvent("CIA: SPEED IS SET to 100%"),
                      replyEvent("CIA: POLLON is OK at address 3"), kPrompt}));
    EXPECT_EQ(
        eventsOf("POLLOFF:3 POLLON:3"),
        repliesAndPrompt({"CIA: POLLON is OK at address 3", "CIA: POLLOFF is OK at address 3"}));
    EXPECT_FALSE(host_.card(3).pollingOn);
    host_.answerWith("51 03 40 12");
    EXPECT_EQ(
        eventsOf("POLLON:3 REBOOT:4"),
        (Events{"request 50 03 01 AB", "pause 1", replyEvent("CIA: Card is REBOOTED"),
                replyEvent("RBT:0x3:OK"), replyEvent("CIA: POLLON is OK at address 3"), kPrompt}));
}

TEST_F(ConsoleLines, TwoCommandsInOneChunkAreOneLine) {
    EXPECT_EQ(eventsOfText("HELP\r\nDRVVER\r\n"), Events{kUnknownCommand});
    EXPECT_EQ(eventsOfText("SPEED=50\r\nHELP\r\n"),
              (Events{"delay 2525", replyEvent("CIA: SPEED IS SET to 50%"), kPrompt}));
    EXPECT_EQ(
        eventsOfText("POLLON:3\r\nPOLLOFF:4\r\n"),
        repliesAndPrompt({"CIA: POLLON is OK at address 3", "CIA: POLLOFF is OK at address 3"}));
}

TEST_F(ConsoleLines, ParametersHangOnTheFirstColonAndEqualsSign) {
    // All commands of a line share the two.
    EXPECT_EQ(eventsOf("4: POLLON:3"), repliesAndPrompt({"CIE: THIS COMMAND IS VALID ON INPUT "
                                                         "CARDS"}));
    EXPECT_EQ(eventsOf("3=1 POLLON:3 SPEED=100"),
              (Events{"delay 5000", replyEvent("CIA: SPEED IS SET to 1 POLLON:3 SPEED=100%"),
                      replyEvent("CIA: POLLON is OK at address 3"), kPrompt}));
    EXPECT_EQ(
        eventsOf("SETSCB2:4=80 GETSCA0:3"),
        (Events{"request 50 04 01 D2 80", "pause 1", replyEvent("CIE: PARAM WRITE ERROR"),
                "request 50 04 40 29", "pause 1", replyEvent("CIE: PARAM READ ERROR"), kPrompt}));
}

TEST_F(ConsoleLines, AOneCharacterSeparator) {
    EXPECT_EQ(eventsWith(";", ";", "DRVVER;"),
              (Events{"reply CIA: DRIVER VERSION 1.20;", "reply >;"}));
    EXPECT_EQ(eventsWith(";", ";", "POLLON:3;"),
              (Events{"reply CIA: POLLON is OK at address 3;", "reply >;"}));
    EXPECT_EQ(eventsWith(";", ";", ";POLLON:3"),
              (Events{"reply CIA: POLLON is OK at address 3;", "reply >;"}));
    const Events unknown{"reply CIE: UNKNOWN COMMAND ;>;"};
    for (const char* text : {"DRVVER\r\n", "DRVVER", ";DRVVER", "DRVVER;;", "POLLON:3\r\n"}) {
        EXPECT_EQ(eventsWith(";", ";", text), unknown) << text;
    }
}

TEST_F(ConsoleLines, AnEmptySeparatorIsAlwaysThere) {
    EXPECT_EQ(eventsWith("", "\r\n", "DRVVER"), repliesAndPrompt({"CIA: DRIVER VERSION 1.20"}));
    EXPECT_EQ(eventsWith("", "\r\n", "DRVVER\r\n"), Events{kUnknownCommand});
    for (const char* text : {"POLLON:3", "POLLON:3\r\n", "xPOLLON:3;"}) {
        EXPECT_EQ(eventsWith("", "\r\n", text),
                  repliesAndPrompt({"CIA: POLLON is OK at address 3"}));
    }
    EXPECT_EQ(
        eventsWith("", "\r\n", "REBOOT:"),
        (Events{"request 50 00 01 AB", "pause 1", replyEvent("CIE: BUS WRITE ERROR"), kPrompt}));
    EXPECT_EQ(eventsWith("", "\r\n", ""), Events{kUnknownCommand});
}

TEST_F(ConsoleLines, RepliesEndWithTheOutputSeparator) {
    EXPECT_EQ(eventsWith("\r\n", "<end>", "POLLSTATE\r\n"),
              (Events{"reply CIA: GLOBAL POLLING IS DISABLED<end>", "reply PTI:0x3:ON<end>",
                      "reply ><end>"}));
    EXPECT_EQ(eventsWith("\r\n", "<end>", "VALAMI\r\n"),
              Events{"reply CIE: UNKNOWN COMMAND <end>><end>"});
    EXPECT_EQ(eventsWith("\r\n", "", "DRVVER\r\n"),
              (Events{"reply CIA: DRIVER VERSION 1.20", "reply >"}));
    EXPECT_EQ(eventsWith("\r\n", "", "VALAMI\r\n"), Events{"reply CIE: UNKNOWN COMMAND >"});
}

}  // namespace
