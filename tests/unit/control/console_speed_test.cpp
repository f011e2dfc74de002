#include "tests/unit/control/console_fixture.h"

namespace {

class ConsoleSpeed : public ConsoleFixture {
  protected:
    static Events set(int delay, const std::string& text) {
        return {"delay " + std::to_string(delay), replyEvent("CIA: SPEED IS SET to " + text + "%"),
                kPrompt};
    }

    const Events outOfRange_ = repliesAndPrompt({"CIE: Parameter is out of range (1..100)"});
    const Events error_ = repliesAndPrompt({"CIE: Command ERROR"});
};

TEST_F(ConsoleSpeed, SetsThePauseOfTheLoops) {
    EXPECT_EQ(eventsOf("SPEED=1"), set(5000, "1"));
    EXPECT_EQ(eventsOf("SPEED=2"), set(4949, "2"));
    EXPECT_EQ(eventsOf("SPEED=50"), set(2525, "50"));
    EXPECT_EQ(eventsOf("SPEED=99"), set(51, "99"));
    EXPECT_EQ(eventsOf("SPEED=100"), set(1, "100"));
}

TEST_F(ConsoleSpeed, EchoesTheNumberAsTyped) {
    EXPECT_EQ(eventsOf("SPEED=050"), set(2525, "050"));
    EXPECT_EQ(eventsOf("SPEED=0000000000000000000000050"), set(2525, "0000000000000000000000050"));
    EXPECT_EQ(eventsOf("SPEED= 50"), set(2525, " 50"));
    EXPECT_EQ(eventsOf("SPEED=50  "), set(2525, "50  "));
    EXPECT_EQ(eventsOf("SPEED=\t50"), set(2525, "\t50"));
    EXPECT_EQ(eventsOf("SPEED=+50"), set(2525, "+50"));
    EXPECT_EQ(eventsOf("SPEED=50%"), set(2525, "50%"));
    EXPECT_EQ(eventsOf("SPEED=50.9"), set(2525, "50.9"));
    EXPECT_EQ(eventsOf("SPEED=50 percent"), set(2525, "50 percent"));
    EXPECT_EQ(eventsOf("SPEED=1SPEED=100"), set(5000, "1SPEED=100"));
}

TEST_F(ConsoleSpeed, RefusesWhatIsNotFrom1To100) {
    for (const char* text : {"0",
                             "101",
                             "-1",
                             "-50",
                             "- 50",
                             "+-5",
                             "",
                             " ",
                             "x",
                             "x50",
                             "0x10",
                             "00",
                             "1000",
                             "2147483648",
                             "4294967296",
                             "4294967346",
                             "8589934593",
                             "18446744073709551666",
                             "99999999999999999999",
                             "-4294967246"}) {
        EXPECT_EQ(eventsOf(std::string("SPEED=") + text), outOfRange_) << text;
    }
}

TEST_F(ConsoleSpeed, ANumberThatNoLongHoldsIsOutOfRange) {
    for (const char* text : {"9223372036854775808", "-9223372036854775809", "18446744073709551617",
                             "100000000000000000000000000000000000050"}) {
        EXPECT_EQ(eventsOf(std::string("SPEED=") + text), outOfRange_) << text;
    }
}

TEST_F(ConsoleSpeed, MayBeAnywhereInTheLine) {
    EXPECT_EQ(eventsOf("xSPEED=50"), set(2525, "50"));
    EXPECT_EQ(eventsOf("a=50 SPEED=1"), set(2525, "50 SPEED=1")) << "the first sign counts";
    EXPECT_EQ(eventsOf("speed=50"), Events{kUnknownCommand});
    EXPECT_EQ(eventsOf("SPEED =50"), Events{kUnknownCommand});
    EXPECT_EQ(eventsOf("SPEED"), Events{kUnknownCommand});
}

TEST_F(ConsoleSpeed, NeedsNoSeparator) {
    EXPECT_EQ(eventsOfText("SPEED=50"), set(2525, "50"));
    EXPECT_EQ(eventsOfText("SPEED="), outOfRange_);
}

TEST_F(ConsoleSpeed, EndsAtAnyCharacterOfTheSeparator) {
    EXPECT_EQ(eventsOfText("SPEED=50\n"), set(2525, "50"));
    EXPECT_EQ(eventsOfText("SPEED=50\r"), set(2525, "50"));
    EXPECT_EQ(eventsOfText("SPEED=5\n0\r\n"), set(4798, "5"));
    EXPECT_EQ(eventsOfText("SPEED=\r50\r\n"), outOfRange_);
    EXPECT_EQ(eventsOfText("SPEED=50;\r\n"), set(2525, "50;"));
}

TEST_F(ConsoleSpeed, IsAnErrorWhenTheLineEndsAheadOfTheNumber) {
    for (const char* text : {"\nSPEED=50\r\n", "\rSPEED=50", "\r\nSPEED=50\r\n", "HELP\r\nSPEED=50",
                             "\nSPEED=", "\r\nSPEED=50POLLSTATE"}) {
        EXPECT_EQ(eventsOfText(text), error_) << text;
    }
}

TEST_F(ConsoleSpeed, GoesOnWithTheLineAfterAnError) {
    EXPECT_EQ(
        eventsOfText("\nSPEED=50 POLLON:0\r\n"),
        repliesAndPrompt({"CIE: Command ERROR", "CIE: THIS COMMAND IS VALID ON INPUT CARDS"}));
    EXPECT_EQ(eventsOf("SPEED=0 POLLON:0"),
              repliesAndPrompt({"CIE: Parameter is out of range (1..100)",
                                "CIE: THIS COMMAND IS VALID ON INPUT CARDS"}));
}

TEST_F(ConsoleSpeed, WithAnEmptySeparatorTheNumberRunsToTheEnd) {
    Console console(host_, "", "\r\n");
    console.interpret("SPEED=50\r\n");
    EXPECT_EQ(host_.takeEvents(), set(2525, "50\r\n"));
    console.interpret("\nSPEED=50");
    EXPECT_EQ(host_.takeEvents(), set(2525, "50"));
}

TEST_F(ConsoleSpeed, AnEqualsSignAsSeparatorIsAlwaysAnError) {
    Console console(host_, "=", "\r\n");
    console.interpret("SPEED=50=");
    EXPECT_EQ(host_.takeEvents(), error_);
}

}  // namespace
