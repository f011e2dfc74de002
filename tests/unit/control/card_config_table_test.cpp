#include "control/card_config_table.h"

#include <cctype>
#include <optional>

#include "bus/card_kinds.h"
#include "tests/unit/control/console_fixture.h"

namespace {

/// One proper line of a command, and all that it may lead to when the card answers
/// with the value 07 or not at all.
struct CommandCase {
    std::string keyword;
    std::string line;
    std::optional<char> kind;
    std::size_t address;
    std::string frame;
    std::vector<std::string> success;
    std::string failure;
    std::string wrongKind;
};

void PrintTo(const CommandCase& row, std::ostream* out) {
    *out << row.line;
}

const std::string kLcdOnly = "CIE: THIS COMMAND IS VALID FOR LCD CONTROL CARD ONLY";
const std::string kAnalogueOnly = "CIE: THIS COMMAND IS VALID ON ANALOG INPUT CARD ONLY";
const std::string kServoOnly = "CIE: THIS COMMAND IS VALID ON SERVO CONTROLLER CARD ONLY";
const std::string kServoLegal = "CIE: THIS COMMAND IS LEGAL ON SERVO CONTROLLER CARD ONLY";
const std::string kMotorOnly = "CIE: THIS COMMAND IS VALID ON DC MOTOR CONTROLLER CARD ONLY";

/// The cases are in test order.
std::vector<CommandCase> commandCases() {
    return {
        {"LCDSELFTEST:",
         "LCDSELFTEST:9=ON",
         card_kind::kLcd,
         9,
         "50 09 01 01 FF",
         {"CIA: SELFTEST STATE IS SET TO ON at address 9"},
         "CIE: STATE WRITE ERROR",
         kLcdOnly},
        {"LCDINITLIGHT:",
         "LCDINITLIGHT:E=OFF",
         card_kind::kLcd,
         14,
         "50 0E 01 02 00",
         {"CIA: INITLIGHT STATE IS SET TO OFF at address E"},
         "CIE: STATE WRITE ERROR",
         kLcdOnly},
        {"REBOOT:",
         "REBOOT:F",
         std::nullopt,
         15,
         "50 0F 01 AB",
         {"CIA: Card is REBOOTED", "RBT:0xF:OK"},
         "CIE: BUS WRITE ERROR",
         ""},
        {"SETANMASK:",
         "SETANMASK:7=3F",
         card_kind::kAnalogueInput,
         7,
         "50 07 01 01 3F",
         {"CIA: Channel MASK of the card is SET", "AMS:0x7:0x3F"},
         "CIE: MASK WRITE ERROR",
         kAnalogueOnly},
        {"GETANMASK:",
         "GETANMASK:B",
         card_kind::kAnalogueInput,
         11,
         "50 0B 40 01",
         {"CIA: MASK is GOT from card", "AMV:0xB:0x07"},
         "CIE: MASK READ ERROR",
         kAnalogueOnly},
        {"STOREANMASK:",
         "STOREANMASK:0",
         card_kind::kAnalogueInput,
         0,
         "50 00 01 02",
         {"CIA: MASK IS STORED at address 0"},
         "CIE: MASK STORE ERROR",
         kAnalogueOnly},
        {"STORESRVPOS:",
         "STORESRVPOS:5",
         card_kind::kServo,
         5,
         "50 05 01 74",
         {"CIA: POSITIONS ARE STORED at address 5"},
         "CIE: POSITION STORING ERROR",
         kServoOnly},
        {"MOVESTRPOS:",
         "MOVESTRPOS:C",
         card_kind::kServo,
         12,
         "50 0C 01 3F",
         {"CIA: SERVOS ARE MOVED TO STORED POSITIONS at address C"},
         "CIE: POSITIONS MOVING ERROR",
         kServoLegal},
        {"SETSC",
         "SETSCB2:3=80",
         card_kind::kServo,
         3,
         "50 03 01 D2 80",
         {"CIA: SERVO PARAM of the card is SET", "SPS:0x3:SCB2:0x80"},
         "CIE: PARAM WRITE ERROR",
         kServoOnly},
        {"GETSC",
         "GETSCB5:3",
         card_kind::kServo,
         3,
         "50 03 40 2C",
         {"CIA: SERVO PARAM is GOT from card", "SPG:0x3:SCB5:0x07"},
         "CIE: PARAM READ ERROR",
         kServoOnly},
        {"SETMSR",
         "SETMSR2:A=10",
         card_kind::kMotor,
         10,
         "50 0A 01 C2 10",
         {"CIA: MSR value of the card is SET", "MPS:0xA:MSR2:0x10"},
         "CIE: PARAM WRITE ERROR",
         kMotorOnly},
        {"GETMSR",
         "GETMSR2:A",
         card_kind::kMotor,
         10,
         "50 0A 40 03",
         {"CIA: MSR value is GOT from card", "MSR2:0xA:0x07"},
         "CIE: PARAM READ ERROR",
         kMotorOnly},
        {"STOREMSRS",
         "STOREMSRS:6",
         card_kind::kMotor,
         6,
         "50 06 01 CD",
         {"CIA: MSR values are STORED at address 6"},
         "CIE: MSR STORING ERROR",
         kMotorOnly},
    };
}

TEST(CardConfigTable, IsInTestOrder) {
    const std::vector<CommandCase> expected = commandCases();
    ASSERT_EQ(cardConfigCommands().size(), expected.size());
    for (std::size_t row = 0; row < expected.size(); ++row) {
        EXPECT_EQ(cardConfigCommands()[row].keyword, expected[row].keyword) << row;
    }
}

TEST(CardConfigTable, ALineWithAllKeywordsRunsThemInTestOrder) {
    support::RecordingHost host;
    Console console(host, "\r\n", "\r\n");
    std::string line;
    Events expected;
    for (const CommandCase& row : commandCases()) {
        line.insert(0, row.keyword + " ");
        if (row.kind) {
            expected.push_back(replyEvent(row.wrongKind));
        } else {
            expected.insert(expected.end(),
                            {"request 50 00 01 AB", "pause 1", replyEvent(row.failure)});
        }
    }
    expected.push_back(kPrompt);
    console.interpret(line + "\r\n");
    EXPECT_EQ(host.takeEvents(), expected);
}

class CardConfigCommands : public ConsoleFixture, public testing::WithParamInterface<CommandCase> {
  protected:
    CardConfigCommands() {
        if (row_.kind) host_.addCard(row_.address, *row_.kind);
    }

    /// The events of a request: it, the pause, the replies and the prompt.
    Events asked(const std::vector<std::string>& replies) const {
        Events events{"request " + row_.frame, "pause 1"};
        for (const std::string& text : replies) events.push_back(replyEvent(text));
        events.push_back(kPrompt);
        return events;
    }

    const CommandCase& row_ = GetParam();
    PERIFCARD& card_ = host_.card(row_.address);
};

TEST_P(CardConfigCommands, Succeeds) {
    host_.answerWith("51 00 00 07");
    EXPECT_EQ(eventsOf(row_.line), asked(row_.success));
    EXPECT_EQ(eventsOf(row_.line), asked(row_.success)) << "again";
}

TEST_P(CardConfigCommands, WaitsAFullSecondForAnAnswerThatIsThereAtOnce) {
    host_.answerWith("51 00 00 07");
    host_.answerAtOnce();
    EXPECT_EQ(eventsOf(row_.line), asked(row_.success));
}

TEST_P(CardConfigCommands, LooksAtTheFirstByteOfTheAnswerOnly) {
    host_.answerWith("51 FF 21 07 FF FF FF FF FF FF FF FF FF FF FF FF");
    EXPECT_EQ(eventsOf(row_.line), asked(row_.success));
}

TEST_P(CardConfigCommands, FailsWhenTheCardIsSilent) {
    EXPECT_EQ(eventsOf(row_.line), asked({row_.failure}));
    EXPECT_EQ(card_.pioAnswer(0), 0);
}

TEST_P(CardConfigCommands, TakesNoOldAnswer) {
    leaveAnswer(card_, wire::kPioAnswer);
    EXPECT_EQ(eventsOf(row_.line), asked({row_.failure}));
}

TEST_P(CardConfigCommands, TakesNoLateAnswerOfTheCommandBefore) {
    host_.answerWith("51 00 00 07");
    host_.answerLate();
    EXPECT_EQ(eventsOf(row_.line), asked({row_.failure}));
    host_.answerRequest();
    EXPECT_EQ(card_.pioAnswer(0), wire::kPioAnswer);
    EXPECT_EQ(eventsOf(row_.line), asked({row_.failure}));
}

TEST_P(CardConfigCommands, ForgetsTheOldAnswerAheadOfTheRequest) {
    leaveAnswer(card_, wire::kPioAnswer);
    int first = -1;
    host_.watch = [&](const std::string& event) {
        if (event.rfind("request", 0) == 0) first = card_.pioAnswer(0);
    };
    eventsOf(row_.line);
    EXPECT_EQ(first, 0);
}

TEST_P(CardConfigCommands, FailsOnAnotherAnswer) {
    for (const char* answer : {"21 00 00 07", "31 00 00 07", "71 00 00 07", "00 51 51 51"}) {
        host_.answerWith(answer);
        EXPECT_EQ(eventsOf(row_.line), asked({row_.failure})) << answer;
    }
}

TEST_P(CardConfigCommands, TouchesNoCardOfAnotherKind) {
    if (!row_.kind) return;
    host_.answerWith("51 00 00 07");
    for (int kind = -128; kind < 128; ++kind) {
        if (kind == *row_.kind) continue;
        host_.addCard(row_.address, static_cast<char>(kind));
        leaveAnswer(card_, wire::kPioAnswer);
        EXPECT_EQ(eventsOf(row_.line), repliesAndPrompt({row_.wrongKind})) << kind;
        EXPECT_EQ(card_.pioAnswer(0), wire::kPioAnswer) << "no clearing";
    }
}

TEST_P(CardConfigCommands, NeedsItsKindAtItsAddressOnly) {
    if (!row_.kind) return;
    for (std::size_t address = 0; address < 16; ++address) {
        if (address != row_.address) host_.addCard(address, card_kind::kInfrared);
    }
    host_.answerWith("51 00 00 07");
    EXPECT_EQ(eventsOf(row_.line), asked(row_.success));
}

TEST_P(CardConfigCommands, IsUnknownWithoutTheSeparatorOrInLowerCase) {
    std::string lower;
    for (const char c : row_.line) lower += static_cast<char>(std::tolower(c));
    for (const std::string& text :
         {row_.line, row_.line + "\n", row_.line + "\r", row_.line + "\n\r", lower + "\r\n"}) {
        EXPECT_EQ(eventsOfText(text), Events{kUnknownCommand}) << text;
    }
}

TEST_P(CardConfigCommands, MayBeAnywhereInTheLine) {
    host_.answerWith("51 00 00 07");
    for (const std::string& text : {" " + row_.line + "\r\n", "please " + row_.line + " \r\n",
                                    row_.line + "\r\nand more", "\r\n" + row_.line}) {
        EXPECT_EQ(eventsOfText(text), asked(row_.success)) << text;
    }
}

INSTANTIATE_TEST_SUITE_P(Each, CardConfigCommands, testing::ValuesIn(commandCases()),
                         [](const auto& tested) {
                             std::string name;
                             for (const char c : tested.param.keyword) {
                                 if (c != ':') name += c;
                             }
                             return name;
                         });

}  // namespace
