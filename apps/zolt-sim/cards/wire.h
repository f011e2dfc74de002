#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

/// The bytes on the card bus as the cards see them. The daemon has the same bytes in
/// a header of its own. The simulator does not include that header: a wrong byte on
/// one side then fails a test instead of agreeing with itself.
namespace zolt_sim::wire {

inline constexpr std::size_t kAddressCount = 16;
/// The length byte before a payload counts to 255.
inline constexpr std::size_t kLongestPayload = 255;

/// First byte of a request.
inline constexpr std::uint8_t kOutput = 0x10;
inline constexpr std::uint8_t kPoll = 0x20;
inline constexpr std::uint8_t kDiscovery = 0x30;
inline constexpr std::uint8_t kHardwareCheck = 0x40;
inline constexpr std::uint8_t kConfig = 0x50;

/// The two bytes that follow kHardwareCheck.
inline constexpr std::array<std::uint8_t, 2> kHardwareCheckMark{0x6F, 0x9A};

/// First byte of an answer.
inline constexpr std::uint8_t kAcknowledge = 0x06;
inline constexpr std::uint8_t kPollAnswer = 0x21;
inline constexpr std::uint8_t kDiscoveryAnswer = 0x31;
inline constexpr std::uint8_t kConfigAnswer = 0x51;
inline constexpr std::uint8_t kNegative = 0x4E;

/// The bus controller's answer to the hardware check: status, then four characters.
inline constexpr std::uint8_t kControllerStatus = 0x06;
inline constexpr std::string_view kControllerVersion = "1.04";

/// Third byte of a configuration request.
inline constexpr std::uint8_t kConfigSet = 0x01;
inline constexpr std::uint8_t kConfigGet = 0x40;

/// Configuration registers, fourth byte of a configuration request.
inline constexpr std::uint8_t kRegisterReboot = 0xAB;
inline constexpr std::uint8_t kRegisterLcdSelfTest = 0x01;
inline constexpr std::uint8_t kRegisterLcdInitLight = 0x02;
inline constexpr std::uint8_t kRegisterMask = 0x01;
inline constexpr std::uint8_t kRegisterMaskStore = 0x02;
inline constexpr std::uint8_t kRegisterServoSetEndA = 0xC0;
inline constexpr std::uint8_t kRegisterServoSetEndB = 0xD0;
inline constexpr std::uint8_t kRegisterServoGetEndA = 0x21;
inline constexpr std::uint8_t kRegisterServoGetEndB = 0x27;
inline constexpr std::uint8_t kRegisterServoStore = 0x74;
inline constexpr std::uint8_t kRegisterServoMoveToStored = 0x3F;
inline constexpr std::uint8_t kRegisterMotorSetRange = 0xC0;
inline constexpr std::uint8_t kRegisterMotorGetRange = 0x01;
inline constexpr std::uint8_t kRegisterMotorStore = 0xCD;

/// First data byte of an output request to an LCD card.
inline constexpr std::uint8_t kLcdClear = 0x00;
inline constexpr std::uint8_t kLcdLightOn = 0x01;
inline constexpr std::uint8_t kLcdLightOff = 0x02;
inline constexpr std::uint8_t kLcdCursorOn = 0x03;
inline constexpr std::uint8_t kLcdCursorOff = 0x04;
inline constexpr std::uint8_t kLcdBlinkOn = 0x05;
inline constexpr std::uint8_t kLcdBlinkOff = 0x06;
inline constexpr std::uint8_t kLcdText = 0x09;

/// The byte of a discovery answer for an address without a card. The codes of the
/// kinds are in card_kinds.cpp.
inline constexpr std::uint8_t kNoCard = 0;

}  // namespace zolt_sim::wire
