#include <array>
#include <cstdio>

#include "bus/card_kinds.h"
#include "control/card_config.h"

namespace {

using Command = CardConfigCommand;
using Arguments = CardConfigArguments;
using Shape = CardConfigCommand::Shape;
using Value = CardConfigCommand::Value;
using Operation = CardConfigCommand::Operation;

constexpr const char* kLcdOnly = "CIE: THIS COMMAND IS VALID FOR LCD CONTROL CARD ONLY";
constexpr const char* kAnalogueOnly = "CIE: THIS COMMAND IS VALID ON ANALOG INPUT CARD ONLY";
constexpr const char* kServoOnly = "CIE: THIS COMMAND IS VALID ON SERVO CONTROLLER CARD ONLY";
constexpr const char* kServoLegal = "CIE: THIS COMMAND IS LEGAL ON SERVO CONTROLLER CARD ONLY";
constexpr const char* kMotorOnly = "CIE: THIS COMMAND IS VALID ON DC MOTOR CONTROLLER CARD ONLY";

/// The formatted lines are far shorter: their texts are single characters.
template <typename... Values>
std::string format(const char* pattern, Values... values) {
    std::array<char, 100> line{};
    std::snprintf(line.data(), line.size(), pattern, values...);
    return line.data();
}

unsigned unsignedByte(char byte) {
    return static_cast<unsigned char>(byte);
}

std::string rebooted(const Arguments& a, char /*answer*/) {
    return format("RBT:0x%X:OK", a.address);
}

std::string maskSet(const Arguments& a, char /*answer*/) {
    return format("AMS:0x%X:0x%.2X", a.address, unsigned{a.value});
}

/// The one line that widens the byte with its sign: from 128 on it has eight
/// digits. Clients know it so.
std::string maskValue(const Arguments& a, char answer) {
    return format("AMV:0x%X:0x%.2X", a.address, static_cast<unsigned>(int{answer}));
}

std::string servoSet(const Arguments& a, char /*answer*/) {
    return format("SPS:0x%X:SC%s%s:0x%.2X", a.address, a.endText.c_str(), a.channelText.c_str(),
                  unsigned{a.value});
}

std::string servoValue(const Arguments& a, char answer) {
    return format("SPG:0x%X:SC%s%s:0x%.2X", a.address, a.endText.c_str(), a.channelText.c_str(),
                  unsignedByte(answer));
}

std::string rangeSet(const Arguments& a, char /*answer*/) {
    return format("MPS:0x%X:MSR%s:0x%.2X", a.address, a.channelText.c_str(), unsigned{a.value});
}

/// The one line that puts the channel before the address.
std::string rangeValue(const Arguments& a, char answer) {
    return format("MSR%d:0x%X:0x%.2X", static_cast<int>(a.channel), a.address,
                  unsignedByte(answer));
}

constexpr std::array kCommands{
    Command{.keyword = "LCDSELFTEST:",
            .kind = card_kind::kLcd,
            .wrongKind = kLcdOnly,
            .operation = Operation::kSet,
            .registerBase = 0x01,
            .value = Value::kState,
            .carried = &CarriedStates::selfTest,
            .success = "CIA: SELFTEST STATE IS SET TO ",
            .namesAddress = true,
            .failure = "CIE: STATE WRITE ERROR"},
    Command{.keyword = "LCDINITLIGHT:",
            .kind = card_kind::kLcd,
            .wrongKind = kLcdOnly,
            .operation = Operation::kSet,
            .registerBase = 0x02,
            .value = Value::kState,
            .carried = &CarriedStates::initLight,
            .success = "CIA: INITLIGHT STATE IS SET TO ",
            .namesAddress = true,
            .failure = "CIE: STATE WRITE ERROR"},
    Command{.keyword = "REBOOT:",
            .operation = Operation::kSet,
            .registerBase = 0xAB,
            .success = "CIA: Card is REBOOTED",
            .resultLine = rebooted,
            .failure = "CIE: BUS WRITE ERROR"},
    Command{.keyword = "SETANMASK:",
            .kind = card_kind::kAnalogueInput,
            .wrongKind = kAnalogueOnly,
            .operation = Operation::kSet,
            .registerBase = 0x01,
            .value = Value::kByte,
            .success = "CIA: Channel MASK of the card is SET",
            .resultLine = maskSet,
            .failure = "CIE: MASK WRITE ERROR"},
    Command{.keyword = "GETANMASK:",
            .kind = card_kind::kAnalogueInput,
            .wrongKind = kAnalogueOnly,
            .operation = Operation::kRead,
            .registerBase = 0x01,
            .success = "CIA: MASK is GOT from card",
            .resultLine = maskValue,
            .failure = "CIE: MASK READ ERROR"},
    Command{.keyword = "STOREANMASK:",
            .kind = card_kind::kAnalogueInput,
            .wrongKind = kAnalogueOnly,
            .operation = Operation::kSet,
            .registerBase = 0x02,
            .success = "CIA: MASK IS STORED",
            .namesAddress = true,
            .failure = "CIE: MASK STORE ERROR"},
    Command{.keyword = "STORESRVPOS:",
            .kind = card_kind::kServo,
            .wrongKind = kServoOnly,
            .operation = Operation::kSet,
            .registerBase = 0x74,
            .success = "CIA: POSITIONS ARE STORED",
            .namesAddress = true,
            .failure = "CIE: POSITION STORING ERROR"},
    Command{.keyword = "MOVESTRPOS:",
            .kind = card_kind::kServo,
            .wrongKind = kServoLegal,
            .operation = Operation::kSet,
            .registerBase = 0x3F,
            .success = "CIA: SERVOS ARE MOVED TO STORED POSITIONS",
            .namesAddress = true,
            .failure = "CIE: POSITIONS MOVING ERROR"},
    Command{.keyword = "SETSC",
            .shape = Shape::kEndChannel,
            .kind = card_kind::kServo,
            .wrongKind = kServoOnly,
            .operation = Operation::kSet,
            .registerBase = 0xC0,
            .endBOffset = 0x10,
            .value = Value::kByte,
            .success = "CIA: SERVO PARAM of the card is SET",
            .resultLine = servoSet,
            .failure = "CIE: PARAM WRITE ERROR"},
    Command{.keyword = "GETSC",
            .shape = Shape::kEndChannel,
            .kind = card_kind::kServo,
            .wrongKind = kServoOnly,
            .operation = Operation::kRead,
            .registerBase = 0x21,
            .endBOffset = 0x06,
            .success = "CIA: SERVO PARAM is GOT from card",
            .resultLine = servoValue,
            .failure = "CIE: PARAM READ ERROR"},
    Command{.keyword = "SETMSR",
            .shape = Shape::kChannel,
            .kind = card_kind::kMotor,
            .wrongKind = kMotorOnly,
            .operation = Operation::kSet,
            .registerBase = 0xC0,
            .value = Value::kByte,
            .success = "CIA: MSR value of the card is SET",
            .resultLine = rangeSet,
            .failure = "CIE: PARAM WRITE ERROR"},
    Command{.keyword = "GETMSR",
            .shape = Shape::kChannel,
            .kind = card_kind::kMotor,
            .wrongKind = kMotorOnly,
            .operation = Operation::kRead,
            .registerBase = 0x01,
            .success = "CIA: MSR value is GOT from card",
            .resultLine = rangeValue,
            .failure = "CIE: PARAM READ ERROR"},
    Command{.keyword = "STOREMSRS",
            .kind = card_kind::kMotor,
            .wrongKind = kMotorOnly,
            .operation = Operation::kSet,
            .registerBase = 0xCD,
            .success = "CIA: MSR values are STORED",
            .namesAddress = true,
            .failure = "CIE: MSR STORING ERROR"},
};

}  // namespace

std::span<const CardConfigCommand> cardConfigCommands() {
    return kCommands;
}
