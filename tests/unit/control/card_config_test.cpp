#include "control/card_config.h"

#include "bus/card_kinds.h"
#include "tests/unit/control/console_fixture.h"

namespace {

/// All cards of the bus are of one kind, and answer with the value 07.
class CardConfig : public ConsoleFixture {
  protected:
    CardConfig() { host_.answerWith("51 00 00 07"); }

    void fillWith(char kind) {
        for (std::size_t address = 0; address < 16; ++address) host_.addCard(address, kind);
    }

    static Events asked(const std::string& frame, const std::vector<std::string>& replies) {
        Events events{"request " + frame, "pause 1"};
        for (const std::string& text : replies) events.push_back(replyEvent(text));
        events.push_back(kPrompt);
        return events;
    }

    static Events selfTest(const std::string& state, const std::string& text) {
        return asked("50 09 01 01 " + state,
                     {"CIA: SELFTEST STATE IS SET TO " + text + " at address 9"});
    }

    static Events initLight(const std::string& state, const std::string& text) {
        return asked("50 09 01 02 " + state,
                     {"CIA: INITLIGHT STATE IS SET TO " + text + " at address 9"});
    }

    static Events maskSet(const std::string& addressAndMask, const std::string& result) {
        return asked("50 " + addressAndMask.substr(0, 2) + " 01 01 " + addressAndMask.substr(3),
                     {"CIA: Channel MASK of the card is SET", result});
    }

    static Events servoSet(const std::string& frame, const std::string& result) {
        return asked(frame, {"CIA: SERVO PARAM of the card is SET", result});
    }

    static Events servoGot(const std::string& frame, const std::string& result) {
        return asked(frame, {"CIA: SERVO PARAM is GOT from card", result});
    }

    static Events rangeSet(const std::string& frame, const std::string& result) {
        return asked(frame, {"CIA: MSR value of the card is SET", result});
    }

    static Events rangeGot(const std::string& frame, const std::string& result) {
        return asked(frame, {"CIA: MSR value is GOT from card", result});
    }
};

// Addresses

TEST_F(CardConfig, ARebootGoesToAnyCardAndToNone) {
    for (const char kind : {card_kind::kEmpty, '\1', card_kind::kDigitalOutput,
                            card_kind::kDigitalInput, card_kind::kInfrared, '\xFF'}) {
        fillWith(kind);
        EXPECT_EQ(eventsOf("REBOOT:F"),
                  asked("50 0F 01 AB", {"CIA: Card is REBOOTED", "RBT:0xF:OK"}));
    }
}

TEST_F(CardConfig, AnAddressThatIsNoDigitIsCardZero) {
    for (const char* line :
         {"REBOOT:a", "REBOOT:f", "REBOOT:G", "REBOOT: 5", "REBOOT:", "REBOOT::5", "xREBOOT:-1"}) {
        EXPECT_EQ(eventsOf(line), asked("50 00 01 AB", {"CIA: Card is REBOOTED", "RBT:0x0:OK"}))
            << line;
    }
    EXPECT_EQ(eventsOfText("\r\nREBOOT:"),
              asked("50 00 01 AB", {"CIA: Card is REBOOTED", "RBT:0x0:OK"}));
}

TEST_F(CardConfig, AnAddressIsEchoedAsTyped) {
    fillWith(card_kind::kServo);
    EXPECT_EQ(eventsOf("STORESRVPOS:a"),
              asked("50 00 01 74", {"CIA: POSITIONS ARE STORED at address a"}));
    EXPECT_EQ(eventsOf("STORESRVPOS:"),
              asked("50 00 01 74", {"CIA: POSITIONS ARE STORED at address \r"}));
    EXPECT_EQ(eventsOfText("\r\nSTORESRVPOS:"),
              asked("50 00 01 74", {"CIA: POSITIONS ARE STORED at address "}));
}

TEST_F(CardConfig, WithoutAColonTheAddressIsTheStartOfTheLine) {
    fillWith(card_kind::kMotor);
    EXPECT_EQ(eventsOf("STOREMSRS"),
              asked("50 00 01 CD", {"CIA: MSR values are STORED at address S"}));
    EXPECT_EQ(eventsOf("A STOREMSRS6"),
              asked("50 0A 01 CD", {"CIA: MSR values are STORED at address A"}));
    EXPECT_EQ(eventsOfText("\r\nSTOREMSRS"),
              asked("50 00 01 CD", {"CIA: MSR values are STORED at address \r"}));
    for (const char* line : {"REBOOT", "SETANMASK=3F", "GETANMASK", "STOREANMASK", "STORESRVPOS",
                             "MOVESTRPOS", "LCDSELFTEST=ON", "LCDINITLIGHT=ON"}) {
        EXPECT_EQ(eventsOf(line), Events{kUnknownCommand}) << line;
    }
}

// Values

TEST_F(CardConfig, AMaskIsTwoDigits) {
    fillWith(card_kind::kAnalogueInput);
    EXPECT_EQ(eventsOf("SETANMASK:5=00"), maskSet("05 00", "AMS:0x5:0x00"));
    EXPECT_EQ(eventsOf("SETANMASK:5=80"), maskSet("05 80", "AMS:0x5:0x80"));
    EXPECT_EQ(eventsOf("SETANMASK:5=FF"), maskSet("05 FF", "AMS:0x5:0xFF"));
    EXPECT_EQ(eventsOf("SETANMASK:5=3F7"), maskSet("05 3F", "AMS:0x5:0x3F"));
    EXPECT_EQ(eventsOf("SETANMASK:5=3f"), maskSet("05 30", "AMS:0x5:0x30"));
    EXPECT_EQ(eventsOf("SETANMASK:5= F"), maskSet("05 0F", "AMS:0x5:0x0F"));
}

TEST_F(CardConfig, OneDigitIsTheHighOneAndNoneIsZero) {
    fillWith(card_kind::kAnalogueInput);
    EXPECT_EQ(eventsOf("SETANMASK:5=3"), maskSet("05 30", "AMS:0x5:0x30"));
    EXPECT_EQ(eventsOf("SETANMASK:5="), maskSet("05 00", "AMS:0x5:0x00"));
    EXPECT_EQ(eventsOfText("\r\nSETANMASK:5=3"), maskSet("05 30", "AMS:0x5:0x30"));
    EXPECT_EQ(eventsOfText("\r\nSETANMASK:5="), maskSet("05 00", "AMS:0x5:0x00"));
}

TEST_F(CardConfig, WithoutAnEqualsSignTheValueIsTheStartOfTheLine) {
    fillWith(card_kind::kAnalogueInput);
    EXPECT_EQ(eventsOf("SETANMASK:5"), maskSet("05 0E", "AMS:0x5:0x0E"));
    EXPECT_EQ(eventsOf("SETANMASK:"), maskSet("00 0E", "AMS:0x0:0x0E"));
    EXPECT_EQ(eventsOf("3FSETANMASK:5"), maskSet("05 3F", "AMS:0x5:0x3F"));
    EXPECT_EQ(eventsOfText("\r\nSETANMASK:5"), maskSet("05 00", "AMS:0x5:0x00"));
}

struct ReadValue {
    const char* byte;
    const char* asSigned;
    const char* asUnsigned;
};

TEST_F(CardConfig, OnlyTheMaskIsShownWithItsSign) {
    for (const ReadValue& value :
         {ReadValue{"00", "00", "00"}, ReadValue{"0A", "0A", "0A"}, ReadValue{"7F", "7F", "7F"},
          ReadValue{"80", "FFFFFF80", "80"}, ReadValue{"FF", "FFFFFFFF", "FF"}}) {
        host_.answerWith(std::string("51 00 00 ") + value.byte + " 55");
        fillWith(card_kind::kAnalogueInput);
        EXPECT_EQ(eventsOf("GETANMASK:7").at(3),
                  replyEvent(std::string("AMV:0x7:0x") + value.asSigned));
        fillWith(card_kind::kServo);
        EXPECT_EQ(eventsOf("GETSCA1:7").at(3),
                  replyEvent(std::string("SPG:0x7:SCA1:0x") + value.asUnsigned));
        fillWith(card_kind::kMotor);
        EXPECT_EQ(eventsOf("GETMSR1:7").at(3),
                  replyEvent(std::string("MSR1:0x7:0x") + value.asUnsigned));
    }
}

// Ends and channels

TEST_F(CardConfig, OnlyTheLetterBIsEndB) {
    fillWith(card_kind::kServo);
    EXPECT_EQ(eventsOf("SETSCA0:3=FF"), servoSet("50 03 01 C0 FF", "SPS:0x3:SCA0:0xFF"));
    EXPECT_EQ(eventsOf("SETSCB0:3=00"), servoSet("50 03 01 D0 00", "SPS:0x3:SCB0:0x00"));
    EXPECT_EQ(eventsOf("SETSCb0:3=10"), servoSet("50 03 01 C0 10", "SPS:0x3:SCb0:0x10"));
    EXPECT_EQ(eventsOf("SETSC 0:3=10"), servoSet("50 03 01 C0 10", "SPS:0x3:SC 0:0x10"));
    EXPECT_EQ(eventsOf("SETSCC5:3=10"), servoSet("50 03 01 C5 10", "SPS:0x3:SCC5:0x10"));
    EXPECT_EQ(eventsOf("GETSCA0:3"), servoGot("50 03 40 21", "SPG:0x3:SCA0:0x07"));
    EXPECT_EQ(eventsOf("GETSCB0:3"), servoGot("50 03 40 27", "SPG:0x3:SCB0:0x07"));
    EXPECT_EQ(eventsOf("GETSCx5:3"), servoGot("50 03 40 26", "SPG:0x3:SCx5:0x07"));
}

TEST_F(CardConfig, ChannelsAreNotBounded) {
    fillWith(card_kind::kServo);
    EXPECT_EQ(eventsOf("SETSCAF:3=10"), servoSet("50 03 01 CF 10", "SPS:0x3:SCAF:0x10"));
    EXPECT_EQ(eventsOf("SETSCBF:3=10"), servoSet("50 03 01 DF 10", "SPS:0x3:SCBF:0x10"));
    EXPECT_EQ(eventsOf("GETSCA9:3"), servoGot("50 03 40 2A", "SPG:0x3:SCA9:0x07"));
    EXPECT_EQ(eventsOf("GETSCBF:3"), servoGot("50 03 40 36", "SPG:0x3:SCBF:0x07"));
    fillWith(card_kind::kMotor);
    EXPECT_EQ(eventsOf("SETMSRF:3=10"), rangeSet("50 03 01 CF 10", "MPS:0x3:MSRF:0x10"));
    EXPECT_EQ(eventsOf("GETMSRC:3"), rangeGot("50 03 40 0D", "MSR12:0x3:0x07"));
}

TEST_F(CardConfig, AChannelThatIsNoDigitIsZeroAndEchoedAsTypedWhereTheEchoIsText) {
    fillWith(card_kind::kServo);
    EXPECT_EQ(eventsOf("SETSCBf:3=10"), servoSet("50 03 01 D0 10", "SPS:0x3:SCBf:0x10"));
    fillWith(card_kind::kMotor);
    EXPECT_EQ(eventsOf("SETMSRx:3=10"), rangeSet("50 03 01 C0 10", "MPS:0x3:MSRx:0x10"));
    EXPECT_EQ(eventsOf("GETMSRx:3"), rangeGot("50 03 40 01", "MSR0:0x3:0x07"));
    EXPECT_EQ(eventsOf("GETMSR:3"), rangeGot("50 03 40 01", "MSR0:0x3:0x07"));
}

TEST_F(CardConfig, MissingEndAndChannelAreReadFromTheKeyword) {
    fillWith(card_kind::kServo);
    EXPECT_EQ(eventsOf("SETSC:5=80"), servoSet("50 05 01 CC 80", "SPS:0x5:SCSC:0x80"));
    EXPECT_EQ(eventsOf("SETSCB:5=80"), servoSet("50 05 01 CB 80", "SPS:0x5:SCCB:0x80"));
    EXPECT_EQ(eventsOf("GETSC:5"), servoGot("50 05 40 2D", "SPG:0x5:SCSC:0x07"));
    EXPECT_EQ(eventsOf("SETSCB12:5=80"), servoSet("50 05 01 C2 80", "SPS:0x5:SC12:0x80"));
    fillWith(card_kind::kMotor);
    EXPECT_EQ(eventsOf("SETMSR12:5=80"), rangeSet("50 05 01 C2 80", "MPS:0x5:MSR2:0x80"));
}

TEST_F(CardConfig, WithoutAColonThereIsNeitherEndNorChannel) {
    fillWith(card_kind::kServo);
    EXPECT_EQ(eventsOf("SETSCB2=80"), servoSet("50 00 01 C0 80", "SPS:0x0:SC:0x80"));
    EXPECT_EQ(eventsOf("SETSC"), servoSet("50 00 01 C0 0E", "SPS:0x0:SC:0x0E"));
    EXPECT_EQ(eventsOf("5GETSCB2"), servoGot("50 05 40 21", "SPG:0x5:SC:0x07"));
    fillWith(card_kind::kMotor);
    EXPECT_EQ(eventsOf("SETMSR2=10"), rangeSet("50 00 01 C0 10", "MPS:0x0:MSR:0x10"));
    EXPECT_EQ(eventsOf("A GETMSR2"), rangeGot("50 0A 40 01", "MSR0:0xA:0x07"));
}

TEST_F(CardConfig, AheadOfAnEarlyColonThereIsNothing) {
    fillWith(card_kind::kServo);
    EXPECT_EQ(eventsOf(":5 SETSC=80"), servoSet("50 05 01 C0 80", "SPS:0x5:SC:0x80"));
    EXPECT_EQ(eventsOf("2:5 SETSC=80"), servoSet("50 05 01 C2 80", "SPS:0x5:SC2:0x80"));
    EXPECT_EQ(eventsOf("B2:5 GETSC"), servoGot("50 05 40 29", "SPG:0x5:SCB2:0x07"));
    fillWith(card_kind::kMotor);
    EXPECT_EQ(eventsOf(":5 SETMSR=80"), rangeSet("50 05 01 C0 80", "MPS:0x5:MSR:0x80"));
    EXPECT_EQ(eventsOf(":5 GETMSR"), rangeGot("50 05 40 01", "MSR0:0x5:0x07"));
}

TEST_F(CardConfig, BehindALastColonTheAddressIsEmpty) {
    fillWith(card_kind::kServo);
    EXPECT_EQ(eventsOfText("\r\nGETSCB2:"), servoGot("50 00 40 29", "SPG:0x0:SCB2:0x07"));
    EXPECT_EQ(eventsOfText("\r\nSETSCB2:"), servoSet("50 00 01 D2 00", "SPS:0x0:SCB2:0x00"));
    fillWith(card_kind::kMotor);
    EXPECT_EQ(eventsOfText("\r\nGETMSR2:"), rangeGot("50 00 40 03", "MSR2:0x0:0x07"));
}

// States of the LCD controller

TEST_F(CardConfig, TwoCharactersSelectAState) {
    fillWith(card_kind::kLcd);
    EXPECT_EQ(eventsOf("LCDSELFTEST:9=ON"), selfTest("FF", "ON"));
    EXPECT_EQ(eventsOf("LCDSELFTEST:9=OFF"), selfTest("00", "OFF"));
    EXPECT_EQ(eventsOf("LCDSELFTEST:9=ONE"), selfTest("FF", "ON"));
    EXPECT_EQ(eventsOf("LCDSELFTEST:9=OF"), selfTest("00", "OFF"));
    EXPECT_EQ(eventsOf("LCDINITLIGHT:9=ON"), initLight("FF", "ON"));
    EXPECT_EQ(eventsOf("LCDINITLIGHT:9=OFFICE"), initLight("00", "OFF"));
}

TEST_F(CardConfig, AnyOtherTextSendsTheLastStateAgainAndIsEchoed) {
    fillWith(card_kind::kLcd);
    for (const auto& [text, echo] : std::vector<std::pair<std::string, std::string>>{{"=on", "on"},
                                                                                     {"=of", "of"},
                                                                                     {"=On", "On"},
                                                                                     {"=XYZ", "XY"},
                                                                                     {"=O", "O\r"},
                                                                                     {"=", "\r\n"},
                                                                                     {"= ON", " O"},
                                                                                     {"", "LC"}}) {
        eventsOf("LCDSELFTEST:9=ON");
        EXPECT_EQ(eventsOf("LCDSELFTEST:9" + text), selfTest("FF", echo));
        eventsOf("LCDSELFTEST:9=OFF");
        EXPECT_EQ(eventsOf("LCDSELFTEST:9" + text), selfTest("00", echo));
    }
    eventsOf("LCDSELFTEST:9=ON");
    EXPECT_EQ(eventsOfText("\r\nLCDSELFTEST:9="), selfTest("FF", ""));
    EXPECT_EQ(eventsOfText("\r\nLCDSELFTEST:9=O"), selfTest("FF", "O"));
}

TEST_F(CardConfig, TheFirstStateIsOff) {
    fillWith(card_kind::kLcd);
    EXPECT_EQ(eventsOf("LCDSELFTEST:9=XX"), selfTest("00", "XX"));
    EXPECT_EQ(eventsOf("LCDINITLIGHT:9=XX"), initLight("00", "XX"));
}

TEST_F(CardConfig, EachCommandHasALastStateOfItsOwn) {
    fillWith(card_kind::kLcd);
    eventsOf("LCDSELFTEST:9=ON");
    EXPECT_EQ(eventsOf("LCDINITLIGHT:9=XX"), initLight("00", "XX"));
    eventsOf("LCDINITLIGHT:9=ON");
    eventsOf("LCDSELFTEST:9=OFF");
    EXPECT_EQ(eventsOf("LCDINITLIGHT:9=XX"), initLight("FF", "XX"));
    EXPECT_EQ(eventsOf("LCDSELFTEST:9=XX"), selfTest("00", "XX"));
}

TEST_F(CardConfig, TheLastStateIsOneForAllCardsAlsoWhenTheCommandFailed) {
    eventsOf("LCDSELFTEST:3=ON");
    host_.addCard(9, card_kind::kLcd);
    EXPECT_EQ(eventsOf("LCDSELFTEST:9=XX"), selfTest("FF", "XX")) << "after a wrong kind";
    host_.answerWith("00");
    eventsOf("LCDSELFTEST:9=OFF");
    host_.answerWith("51");
    EXPECT_EQ(eventsOf("LCDSELFTEST:9=XX"), selfTest("00", "XX")) << "after silence";
}

}  // namespace
