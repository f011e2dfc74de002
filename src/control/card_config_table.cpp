#include "control/card_config_table.h"

#include <array>
#include <cstdio>

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

/// The number in upper-case hexadecimal, without leading zeros.
std::string hex(unsigned number) {
    std::array<char, 9> digits{};
    std::snprintf(digits.data(), digits.size(), "%X", number);
    return digits.data();
}

/// The number in upper-case hexadecimal, with at least two digits.
std::string hexByte(unsigned number) {
    return number < 0x10 ? "0" + hex(number) : hex(number);
}

unsigned unsignedByte(char byte) {
    return static_cast<unsigned char>(byte);
}

std::string rebooted(const Arguments& a, char /*answer*/) {
    return "RBT:0x" + hex(a.address) + ":OK";
}

std::string maskSet(const Arguments& a, char /*answer*/) {
    return "AMS:0x" + hex(a.address) + ":0x" + hexByte(a.value);
}

/// No other line widens the byte with its sign: from 128 on it has eight digits.
/// Clients know the line so.
std::string maskValue(const Arguments& a, char answer) {
    return "AMV:0x" + hex(a.address) + ":0x" + hexByte(static_cast<unsigned>(int{answer}));
}

std::string servoSet(const Arguments& a, char /*answer*/) {
    return "SPS:0x" + hex(a.address) + ":SC" + a.endText + a.channelText + ":0x" + hexByte(a.value);
}

std::string servoValue(const Arguments& a, char answer) {
    return "SPG:0x" + hex(a.address) + ":SC" + a.endText + a.channelText + ":0x" +
           hexByte(unsignedByte(answer));
}

std::string rangeSet(const Arguments& a, char /*answer*/) {
    return "MPS:0x" + hex(a.address) + ":MSR" + a.channelText + ":0x" + hexByte(a.value);
}

/// No other line puts the channel before the address, and this one shows the
/// channel as a decimal number.
std::string rangeValue(const Arguments& a, char answer) {
    return "MSR" + std::to_string(a.channel) + ":0x" + hex(a.address) + ":0x" +
           hexByte(unsignedByte(answer));
}

constexpr std::array kCommands{
    Command{.keyword = "LCDSELFTEST:",
            .settings = CardSettings::kStartStates,
            .wrongKind = kLcdOnly,
            .operation = Operation::kSet,
            .registerBase = 0x01,
            .value = Value::kState,
            .carried = &CarriedStates::selfTest,
            .success = "CIA: SELFTEST STATE IS SET TO ",
            .namesAddress = true,
            .failure = "CIE: STATE WRITE ERROR"},
    Command{.keyword = "LCDINITLIGHT:",
            .settings = CardSettings::kStartStates,
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
            .settings = CardSettings::kChannelMask,
            .wrongKind = kAnalogueOnly,
            .operation = Operation::kSet,
            .registerBase = 0x01,
            .value = Value::kByte,
            .success = "CIA: Channel MASK of the card is SET",
            .resultLine = maskSet,
            .failure = "CIE: MASK WRITE ERROR"},
    Command{.keyword = "GETANMASK:",
            .settings = CardSettings::kChannelMask,
            .wrongKind = kAnalogueOnly,
            .operation = Operation::kRead,
            .registerBase = 0x01,
            .success = "CIA: MASK is GOT from card",
            .resultLine = maskValue,
            .failure = "CIE: MASK READ ERROR"},
    Command{.keyword = "STOREANMASK:",
            .settings = CardSettings::kChannelMask,
            .wrongKind = kAnalogueOnly,
            .operation = Operation::kSet,
            .registerBase = 0x02,
            .success = "CIA: MASK IS STORED",
            .namesAddress = true,
            .failure = "CIE: MASK STORE ERROR"},
    Command{.keyword = "STORESRVPOS:",
            .settings = CardSettings::kPositions,
            .wrongKind = kServoOnly,
            .operation = Operation::kSet,
            .registerBase = 0x74,
            .success = "CIA: POSITIONS ARE STORED",
            .namesAddress = true,
            .failure = "CIE: POSITION STORING ERROR"},
    Command{.keyword = "MOVESTRPOS:",
            .settings = CardSettings::kPositions,
            .wrongKind = kServoLegal,
            .operation = Operation::kSet,
            .registerBase = 0x3F,
            .success = "CIA: SERVOS ARE MOVED TO STORED POSITIONS",
            .namesAddress = true,
            .failure = "CIE: POSITIONS MOVING ERROR"},
    Command{.keyword = "SETSC",
            .shape = Shape::kEndChannel,
            .settings = CardSettings::kPositions,
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
            .settings = CardSettings::kPositions,
            .wrongKind = kServoOnly,
            .operation = Operation::kRead,
            .registerBase = 0x21,
            .endBOffset = 0x06,
            .success = "CIA: SERVO PARAM is GOT from card",
            .resultLine = servoValue,
            .failure = "CIE: PARAM READ ERROR"},
    Command{.keyword = "SETMSR",
            .shape = Shape::kChannel,
            .settings = CardSettings::kSilentRanges,
            .wrongKind = kMotorOnly,
            .operation = Operation::kSet,
            .registerBase = 0xC0,
            .value = Value::kByte,
            .success = "CIA: MSR value of the card is SET",
            .resultLine = rangeSet,
            .failure = "CIE: PARAM WRITE ERROR"},
    Command{.keyword = "GETMSR",
            .shape = Shape::kChannel,
            .settings = CardSettings::kSilentRanges,
            .wrongKind = kMotorOnly,
            .operation = Operation::kRead,
            .registerBase = 0x01,
            .success = "CIA: MSR value is GOT from card",
            .resultLine = rangeValue,
            .failure = "CIE: PARAM READ ERROR"},
    Command{.keyword = "STOREMSRS",
            .settings = CardSettings::kSilentRanges,
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
