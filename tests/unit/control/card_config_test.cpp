#include "control/card_config.h"

#include "bus/card_kinds.h"
#include "tests/unit/control/card_config_fixture.h"

namespace {

const std::string kRebooted = "CIA: Card is REBOOTED";
const std::string kMaskSet = "CIA: Channel MASK of the card is SET";
const std::string kMaskGot = "CIA: MASK is GOT from card";
const std::string kServoSet = "CIA: SERVO PARAM of the card is SET";
const std::string kServoGot = "CIA: SERVO PARAM is GOT from card";
const std::string kRangeSet = "CIA: MSR value of the card is SET";
const std::string kRangeGot = "CIA: MSR value is GOT from card";

// Addresses

TEST_F(CardConfig, ARebootGoesToAnyCardAndToNone) {
    for (const char kind : {card_kind::kEmpty, '\1', card_kind::kDigitalOutput,
                            card_kind::kDigitalInput, card_kind::kInfrared, '\xFF'}) {
        fillWith(kind);
        expectExchanges(kRebooted, {{"REBOOT:F", "50 0F 01 AB", "RBT:0xF:OK"}});
    }
}

TEST_F(CardConfig, AnAddressThatIsNoDigitIsCardZero) {
    for (const char* line : {"REBOOT:a", "REBOOT:f", "REBOOT:G", "REBOOT: 5",
                             "REBOOT:", "REBOOT::5", "xREBOOT:-1", "\r\nREBOOT:"}) {
        expectExchanges(kRebooted, {{line, "50 00 01 AB", "RBT:0x0:OK"}});
    }
}

TEST_F(CardConfig, AnAddressIsEchoedAsTyped) {
    fillWith(card_kind::kServo);
    expectShort("CIA: POSITIONS ARE STORED at address ", {{"STORESRVPOS:a", "50 00 01 74", "a"},
                                                          {"STORESRVPOS:", "50 00 01 74", "\r"},
                                                          {"\r\nSTORESRVPOS:", "50 00 01 74", ""}});
    expectShort("CIA: SERVOS ARE MOVED TO STORED POSITIONS at address ",
                {{"MOVESTRPOS:a", "50 00 01 3F", "a"}, {"MOVESTRPOS:", "50 00 01 3F", "\r"}});
    fillWith(card_kind::kAnalogueInput);
    expectShort("CIA: MASK IS STORED at address ", {{"STOREANMASK:f", "50 00 01 02", "f"}});
    fillWith(card_kind::kMotor);
    expectShort("CIA: MSR values are STORED at address ", {{"STOREMSRS:g", "50 00 01 CD", "g"}});
}

TEST_F(CardConfig, WithoutAColonTheAddressIsTheStartOfTheLine) {
    fillWith(card_kind::kMotor);
    expectShort("CIA: MSR values are STORED at address ", {{"STOREMSRS", "50 00 01 CD", "S"},
                                                           {"A STOREMSRS6", "50 0A 01 CD", "A"},
                                                           {"\r\nSTOREMSRS", "50 00 01 CD", "\r"}});
    for (const char* line : {"REBOOT", "SETANMASK=3F", "GETANMASK", "STOREANMASK", "STORESRVPOS",
                             "MOVESTRPOS", "LCDSELFTEST=ON", "LCDINITLIGHT=ON"}) {
        EXPECT_EQ(eventsOf(line), Events{kUnknownCommand}) << line;
    }
}

// Values

TEST_F(CardConfig, AMaskIsTwoDigits) {
    fillWith(card_kind::kAnalogueInput);
    expectExchanges(kMaskSet, {{"SETANMASK:5=00", "50 05 01 01 00", "AMS:0x5:0x00"},
                               {"SETANMASK:5=80", "50 05 01 01 80", "AMS:0x5:0x80"},
                               {"SETANMASK:5=FF", "50 05 01 01 FF", "AMS:0x5:0xFF"},
                               {"SETANMASK:5=3F7", "50 05 01 01 3F", "AMS:0x5:0x3F"},
                               {"SETANMASK:5=3f", "50 05 01 01 30", "AMS:0x5:0x30"},
                               {"SETANMASK:5=a7", "50 05 01 01 07", "AMS:0x5:0x07"},
                               {"SETANMASK:5= F", "50 05 01 01 0F", "AMS:0x5:0x0F"}});
}

TEST_F(CardConfig, OneDigitIsTheHighOneAndNoneIsZero) {
    fillWith(card_kind::kAnalogueInput);
    expectExchanges(kMaskSet, {{"SETANMASK:5=3", "50 05 01 01 30", "AMS:0x5:0x30"},
                               {"SETANMASK:5=", "50 05 01 01 00", "AMS:0x5:0x00"},
                               {"\r\nSETANMASK:5=3", "50 05 01 01 30", "AMS:0x5:0x30"},
                               {"\r\nSETANMASK:5=", "50 05 01 01 00", "AMS:0x5:0x00"}});
    fillWith(card_kind::kServo);
    expectExchanges(kServoSet, {{"SETSCB2:0=8", "50 00 01 D2 80", "SPS:0x0:SCB2:0x80"}});
    fillWith(card_kind::kMotor);
    expectExchanges(kRangeSet, {{"SETMSR1:0=2", "50 00 01 C1 20", "MPS:0x0:MSR1:0x20"}});
}

TEST_F(CardConfig, WithoutAnEqualsSignTheValueIsTheStartOfTheLine) {
    fillWith(card_kind::kAnalogueInput);
    expectExchanges(kMaskSet, {{"SETANMASK:5", "50 05 01 01 0E", "AMS:0x5:0x0E"},
                               {"SETANMASK:", "50 00 01 01 0E", "AMS:0x0:0x0E"},
                               {"3FSETANMASK:5", "50 05 01 01 3F", "AMS:0x5:0x3F"},
                               {"\r\nSETANMASK:5", "50 05 01 01 00", "AMS:0x5:0x00"}});
    fillWith(card_kind::kServo);
    expectExchanges(kServoSet, {{"SETSCB2:0", "50 00 01 D2 0E", "SPS:0x0:SCB2:0x0E"}});
    fillWith(card_kind::kMotor);
    expectExchanges(kRangeSet, {{"SETMSR1:0", "50 00 01 C1 0E", "MPS:0x0:MSR1:0x0E"}});
}

struct ReadValue {
    std::string byte;
    std::string asSigned;
};

TEST_F(CardConfig, OnlyTheMaskIsShownWithItsSign) {
    for (const ReadValue& value :
         {ReadValue{"00", "00"}, ReadValue{"0A", "0A"}, ReadValue{"7F", "7F"},
          ReadValue{"80", "FFFFFF80"}, ReadValue{"FF", "FFFFFFFF"}}) {
        host_.answerWith("51 00 00 " + value.byte + " 55");
        fillWith(card_kind::kAnalogueInput);
        expectExchanges(kMaskGot, {{"GETANMASK:7", "50 07 40 01", "AMV:0x7:0x" + value.asSigned}});
        fillWith(card_kind::kServo);
        expectExchanges(kServoGot, {{"GETSCA1:7", "50 07 40 22", "SPG:0x7:SCA1:0x" + value.byte}});
        fillWith(card_kind::kMotor);
        expectExchanges(kRangeGot, {{"GETMSR1:7", "50 07 40 02", "MSR1:0x7:0x" + value.byte}});
    }
}

TEST_F(CardConfig, AnAnswerWithoutAValueMeansZero) {
    host_.answerWith("51 0F");
    fillWith(card_kind::kAnalogueInput);
    expectExchanges(kMaskGot, {{"GETANMASK:F", "50 0F 40 01", "AMV:0xF:0x00"}});
}

// Ends and channels

TEST_F(CardConfig, OnlyTheLetterBIsEndB) {
    fillWith(card_kind::kServo);
    expectExchanges(kServoSet, {{"SETSCA0:3=FF", "50 03 01 C0 FF", "SPS:0x3:SCA0:0xFF"},
                                {"SETSCB0:3=00", "50 03 01 D0 00", "SPS:0x3:SCB0:0x00"},
                                {"SETSCb0:3=10", "50 03 01 C0 10", "SPS:0x3:SCb0:0x10"},
                                {"SETSC 0:3=10", "50 03 01 C0 10", "SPS:0x3:SC 0:0x10"},
                                {"SETSCC5:3=10", "50 03 01 C5 10", "SPS:0x3:SCC5:0x10"}});
    expectExchanges(kServoGot, {{"GETSCA0:3", "50 03 40 21", "SPG:0x3:SCA0:0x07"},
                                {"GETSCB0:3", "50 03 40 27", "SPG:0x3:SCB0:0x07"},
                                {"GETSCx5:3", "50 03 40 26", "SPG:0x3:SCx5:0x07"}});
}

TEST_F(CardConfig, ChannelsAreNotBounded) {
    fillWith(card_kind::kServo);
    expectExchanges(kServoSet, {{"SETSCAF:3=10", "50 03 01 CF 10", "SPS:0x3:SCAF:0x10"},
                                {"SETSCB9:3=10", "50 03 01 D9 10", "SPS:0x3:SCB9:0x10"},
                                {"SETSCBF:3=10", "50 03 01 DF 10", "SPS:0x3:SCBF:0x10"}});
    expectExchanges(kServoGot, {{"GETSCA9:3", "50 03 40 2A", "SPG:0x3:SCA9:0x07"},
                                {"GETSCBF:3", "50 03 40 36", "SPG:0x3:SCBF:0x07"}});
    fillWith(card_kind::kMotor);
    expectExchanges(kRangeSet, {{"SETMSR9:3=10", "50 03 01 C9 10", "MPS:0x3:MSR9:0x10"},
                                {"SETMSRF:3=10", "50 03 01 CF 10", "MPS:0x3:MSRF:0x10"}});
    expectExchanges(kRangeGot, {{"GETMSRC:3", "50 03 40 0D", "MSR12:0x3:0x07"}});
}

TEST_F(CardConfig, AChannelThatIsNoDigitIsZeroAndEchoedAsTypedWhereTheEchoIsText) {
    fillWith(card_kind::kServo);
    expectExchanges(kServoSet, {{"SETSCBf:3=10", "50 03 01 D0 10", "SPS:0x3:SCBf:0x10"}});
    fillWith(card_kind::kMotor);
    expectExchanges(kRangeSet, {{"SETMSRx:3=10", "50 03 01 C0 10", "MPS:0x3:MSRx:0x10"}});
    expectExchanges(kRangeGot, {{"GETMSRx:3", "50 03 40 01", "MSR0:0x3:0x07"},
                                {"GETMSR:3", "50 03 40 01", "MSR0:0x3:0x07"}});
}

TEST_F(CardConfig, MissingEndAndChannelAreReadFromTheKeyword) {
    fillWith(card_kind::kServo);
    expectExchanges(kServoSet, {{"SETSC:5=80", "50 05 01 CC 80", "SPS:0x5:SCSC:0x80"},
                                {"SETSCB:5=80", "50 05 01 CB 80", "SPS:0x5:SCCB:0x80"},
                                {"SETSCB12:5=80", "50 05 01 C2 80", "SPS:0x5:SC12:0x80"}});
    expectExchanges(kServoGot, {{"GETSC:5", "50 05 40 2D", "SPG:0x5:SCSC:0x07"}});
    fillWith(card_kind::kMotor);
    expectExchanges(kRangeSet, {{"SETMSR12:5=80", "50 05 01 C2 80", "MPS:0x5:MSR2:0x80"}});
}

TEST_F(CardConfig, WithoutAColonThereIsNeitherEndNorChannel) {
    fillWith(card_kind::kServo);
    expectExchanges(kServoSet, {{"SETSCB2=80", "50 00 01 C0 80", "SPS:0x0:SC:0x80"},
                                {"SETSC", "50 00 01 C0 0E", "SPS:0x0:SC:0x0E"}});
    expectExchanges(kServoGot, {{"GETSC", "50 00 40 21", "SPG:0x0:SC:0x07"},
                                {"5GETSCB2", "50 05 40 21", "SPG:0x5:SC:0x07"}});
    fillWith(card_kind::kMotor);
    expectExchanges(kRangeSet, {{"SETMSR2=10", "50 00 01 C0 10", "MPS:0x0:MSR:0x10"}});
    expectExchanges(kRangeGot, {{"GETMSR", "50 00 40 01", "MSR0:0x0:0x07"},
                                {"A GETMSR2", "50 0A 40 01", "MSR0:0xA:0x07"}});
}

TEST_F(CardConfig, AheadOfAnEarlyColonThereIsNothing) {
    fillWith(card_kind::kServo);
    expectExchanges(kServoSet, {{":5 SETSC=80", "50 05 01 C0 80", "SPS:0x5:SC:0x80"},
                                {"2:5 SETSC=80", "50 05 01 C2 80", "SPS:0x5:SC2:0x80"}});
    expectExchanges(kServoGot, {{":GETSC", "50 00 40 21", "SPG:0x0:SC:0x07"},
                                {"3:GETSC", "50 00 40 24", "SPG:0x0:SC3:0x07"},
                                {"B2:5 GETSC", "50 05 40 29", "SPG:0x5:SCB2:0x07"},
                                {"B4:0 GETSCA1:3", "50 00 40 2B", "SPG:0x0:SCB4:0x07"}});
    fillWith(card_kind::kMotor);
    expectExchanges(kRangeSet, {{":5 SETMSR=80", "50 05 01 C0 80", "MPS:0x5:MSR:0x80"}});
    expectExchanges(kRangeGot, {{":5 GETMSR", "50 05 40 01", "MSR0:0x5:0x07"},
                                {":GETMSR1", "50 00 40 01", "MSR0:0x0:0x07"}});
}

TEST_F(CardConfig, AfterALastColonTheAddressIsEmpty) {
    fillWith(card_kind::kServo);
    expectExchanges(kServoGot, {{"\r\nGETSCB2:", "50 00 40 29", "SPG:0x0:SCB2:0x07"}});
    expectExchanges(kServoSet, {{"\r\nSETSCB2:", "50 00 01 D2 00", "SPS:0x0:SCB2:0x00"}});
    fillWith(card_kind::kMotor);
    expectExchanges(kRangeGot, {{"\r\nGETMSR2:", "50 00 40 03", "MSR2:0x0:0x07"}});
}

TEST_F(CardConfig, EndAndChannelMayBeALineEndAheadOfTheColon) {
    fillWith(card_kind::kServo);
    EXPECT_EQ(eventsOfText("GETSCB2\r\n:"),
              (Events{"request 50 00 40 21", "pause 1", replyEvent(kServoGot),
                      replyEvent("SPG:0x0:SC\r\n:0x07"), kPrompt}));
    fillWith(card_kind::kMotor);
    EXPECT_EQ(eventsOfText("GETMSR1\r\n:"),
              (Events{"request 50 00 40 01", "pause 1", replyEvent(kRangeGot),
                      replyEvent("MSR0:0x0:0x07"), kPrompt}));
}

// Answers

TEST_F(CardConfig, AnAnswerForAnotherCardDoesNotCountAndIsKeptForThatCard) {
    host_.answerLate();
    host_.watch = [this](const std::string& event) {
        if (event == "pause 1") leaveAnswer(host_.card(3), wire::kPioAnswer);
    };
    EXPECT_EQ(eventsOf("REBOOT:5"), (Events{"request 50 05 01 AB", "pause 1",
                                            replyEvent("CIE: BUS WRITE ERROR"), kPrompt}));
    EXPECT_EQ(host_.card(3).pioAnswer(0), wire::kPioAnswer);
}

}  // namespace
