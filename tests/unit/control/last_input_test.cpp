#include "bus/card_kinds.h"
#include "tests/unit/control/console_fixture.h"

namespace {

/// The bus has a digital input card at 3 and an analogue one at 15; their stored
/// values are 0x40, 0x41 and so on.
class LastInput : public ConsoleFixture {
  protected:
    LastInput() {
        host_.addCard(3, card_kind::kDigitalInput);
        host_.addCard(15, card_kind::kAnalogueInput);
        for (std::size_t block = 0; block < PERIFCARD::kBlocks; ++block) {
            for (const std::size_t address : {3U, 15U}) {
                host_.card(address).values[block] = static_cast<std::uint8_t>(0x40 + block);
            }
        }
    }

    static Events sent(const std::string& report) {
        return {"report " + report, replyEvent("CIA: LAST INPUT STATE SENT ON IO INTERFACE"),
                kPrompt};
    }

    const Events wrongBlock_ = repliesAndPrompt({"CIE: INVALID BLOCK NUMBER"});
    const Events wrongKind_ =
        repliesAndPrompt({"CIE: THIS COMMAND IS VALID ON ANALOG OR DIGITAL INPUT CARD ONLY"});
};

TEST_F(LastInput, OfADigitalCardHasTwoBlocks) {
    EXPECT_EQ(eventsOf("GETLASTINPST:3=0"), sent("a3b0d40"));
    EXPECT_EQ(eventsOf("GETLASTINPST:3=1"), sent("a3b1d41"));
    for (const char digit : std::string("23456789ABCDEF")) {
        EXPECT_EQ(eventsOf(std::string("GETLASTINPST:3=") + digit), wrongBlock_) << digit;
    }
}

TEST_F(LastInput, OfAnAnalogueCardHasSixBlocks) {
    for (const char digit : std::string("012345")) {
        EXPECT_EQ(eventsOf(std::string("GETLASTINPST:F=") + digit),
                  sent(std::string("aFb") + digit + "d4" + digit));
    }
    for (const char digit : std::string("6789ABCDEF")) {
        EXPECT_EQ(eventsOf(std::string("GETLASTINPST:F=") + digit), wrongBlock_) << digit;
    }
}

TEST_F(LastInput, HasAlwaysTwoDigits) {
    host_.card(3).values[0] = 0x00;
    EXPECT_EQ(eventsOf("GETLASTINPST:3=0"), sent("a3b0d00"));
    host_.card(3).values[0] = 0x0A;
    EXPECT_EQ(eventsOf("GETLASTINPST:3=0"), sent("a3b0d0A"));
    host_.card(3).values[0] = 0xFF;
    EXPECT_EQ(eventsOf("GETLASTINPST:3=0"), sent("a3b0dFF"));
}

TEST_F(LastInput, IsForNoOtherKind) {
    for (const char kind : {card_kind::kEmpty, card_kind::kDigitalOutput, card_kind::kServo,
                            card_kind::kMotor, card_kind::kKeyMatrix, card_kind::kLcd,
                            card_kind::kInfrared, '\1', '\2', '\x0B', '\xFF'}) {
        host_.addCard(5, kind);
        EXPECT_EQ(eventsOf("GETLASTINPST:5=0"), wrongKind_) << int{kind};
        EXPECT_EQ(eventsOf("GETLASTINPST:5=9"), wrongKind_) << int{kind};
    }
}

TEST_F(LastInput, DoesNotDependOnPolling) {
    eventsOf("POLLOFF:3");
    EXPECT_EQ(eventsOf("GETLASTINPST:3=1"), sent("a3b1d41"));
}

TEST_F(LastInput, TakesDigitsThatAreNoneAsZero) {
    host_.addCard(0, card_kind::kDigitalInput);
    EXPECT_EQ(eventsOf("GETLASTINPST:f=1"), sent("a0b1d00"));
    EXPECT_EQ(eventsOf("GETLASTINPST:F=a"), sent("aFb0d40"));
    EXPECT_EQ(eventsOf("GETLASTINPST:F= 5"), sent("aFb0d40"));
    EXPECT_EQ(eventsOf("GETLASTINPST:F=-1"), sent("aFb0d40"));
    EXPECT_EQ(eventsOf("GETLASTINPST:F="), sent("aFb0d40"));
    EXPECT_EQ(eventsOf("GETLASTINPST:=1"), sent("a0b1d00"));
    EXPECT_EQ(eventsOf("GETLASTINPST:"), sent("a0b0d00"));
}

TEST_F(LastInput, WithoutAnEqualsSignTakesTheBlockFromTheStartOfTheLine) {
    EXPECT_EQ(eventsOf("GETLASTINPST:F"), sent("aFb0d40"));
    EXPECT_EQ(eventsOf("5GETLASTINPST:F"), sent("aFb5d45"));
}

TEST_F(LastInput, AtTheVeryEndOfTheTextMissingPartsAreZero) {
    host_.addCard(0, card_kind::kDigitalInput);
    EXPECT_EQ(eventsOfText("\r\nGETLASTINPST:"), sent("a0b0d00"));
    EXPECT_EQ(eventsOfText("\r\nGETLASTINPST:F="), sent("aFb0d40"));
}

TEST_F(LastInput, TakesOneCharacterEach) {
    EXPECT_EQ(eventsOf("GETLASTINPST:F=51"), sent("aFb5d45"));
    EXPECT_EQ(eventsOf("GETLASTINPST:F3=5"), sent("aFb5d45"));
}

TEST_F(LastInput, NeedsItsSeparatorAndColon) {
    for (const char* text : {"GETLASTINPST:3=0", "GETLASTINPST:3=0\n", "GETLASTINPST:3=0\r",
                             "GETLASTINPST=0\r\n", "getlastinpst:3=0\r\n"}) {
        EXPECT_EQ(eventsOfText(text), Events{kUnknownCommand}) << text;
    }
}

}  // namespace
