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
    Command{"LCDSELFTEST:", Shape::kAddress, card_kind::kLcd, kLcdOnly, Operation::kSet, 0x01, 0x01,
            Value::kState, &CarriedStates::selfTest, "CIA: SELFTEST STATE IS SET TO ", true,
            nullptr, "CIE: STATE WRITE ERROR"},
    Command{"LCDINITLIGHT:", Shape::kAddress, card_kind::kLcd, kLcdOnly, Operation::kSet, 0x02,
            0x02, Value::kState, &CarriedStates::initLight, "CIA: INITLIGHT STATE IS SET TO ", true,
            nullptr, "CIE: STATE WRITE ERROR"},
    Command{"REBOOT:", Shape::kAddress, std::nullopt, nullptr, Operation::kSet, 0xAB, 0xAB,
            Value::kNone, nullptr, "CIA: Card is REBOOTED", false, rebooted,
            "CIE: BUS WRITE ERROR"},
    Command{"SETANMASK:", Shape::kAddress, card_kind::kAnalogueInput, kAnalogueOnly,
            Operation::kSet, 0x01, 0x01, Value::kByte, nullptr,
            "CIA: Channel MASK of the card is SET", false, maskSet, "CIE: MASK WRITE ERROR"},
    Command{"GETANMASK:", Shape::kAddress, card_kind::kAnalogueInput, kAnalogueOnly,
            Operation::kRead, 0x01, 0x01, Value::kNone, nullptr, "CIA: MASK is GOT from card",
            false, maskValue, "CIE: MASK READ ERROR"},
    Command{"STOREANMASK:", Shape::kAddress, card_kind::kAnalogueInput, kAnalogueOnly,
            Operation::kSet, 0x02, 0x02, Value::kNone, nullptr, "CIA: MASK IS STORED", true,
            nullptr, "CIE: MASK STORE ERROR"},
    Command{"STORESRVPOS:", Shape::kAddress, card_kind::kServo, kServoOnly, Operation::kSet, 0x74,
            0x74, Value::kNone, nullptr, "CIA: POSITIONS ARE STORED", true, nullptr,
            "CIE: POSITION STORING ERROR"},
    Command{"MOVESTRPOS:", Shape::kAddress, card_kind::kServo, kServoLegal, Operation::kSet, 0x3F,
            0x3F, Value::kNone, nullptr, "CIA: SERVOS ARE MOVED TO STORED POSITIONS", true, nullptr,
            "CIE: POSITIONS MOVING ERROR"},
    Command{"SETSC", Shape::kEndChannel, card_kind::kServo, kServoOnly, Operation::kSet, 0xC0, 0xD0,
            Value::kByte, nullptr, "CIA: SERVO PARAM of the card is SET", false, servoSet,
            "CIE: PARAM WRITE ERROR"},
    Command{"GETSC", Shape::kEndChannel, card_kind::kServo, kServoOnly, Operation::kRead, 0x21,
            0x27, Value::kNone, nullptr, "CIA: SERVO PARAM is GOT from card", false, servoValue,
            "CIE: PARAM READ ERROR"},
    Command{"SETMSR", Shape::kChannel, card_kind::kMotor, kMotorOnly, Operation::kSet, 0xC0, 0xC0,
            Value::kByte, nullptr, "CIA: MSR value of the card is SET", false, rangeSet,
            "CIE: PARAM WRITE ERROR"},
    Command{"GETMSR", Shape::kChannel, card_kind::kMotor, kMotorOnly, Operation::kRead, 0x01, 0x01,
            Value::kNone, nullptr, "CIA: MSR value is GOT from card", false, rangeValue,
            "CIE: PARAM READ ERROR"},
    Command{"STOREMSRS", Shape::kAddress, card_kind::kMotor, kMotorOnly, Operation::kSet, 0xCD,
            0xCD, Value::kNone, nullptr, "CIA: MSR values are STORED", true, nullptr,
            "CIE: MSR STORING ERROR"},
};

}  // namespace

std::span<const CardConfigCommand> cardConfigCommands() {
    return kCommands;
}
