#pragma once

#include <cstddef>

/// The bytes of the card bus as the host sees them. A frame is one length byte,
/// which does not count itself, and the payload; docs/card-bus.md shows each.
namespace wire {

/// Bus addresses are 0 to 15.
inline constexpr std::size_t kAddresses = 16;

/// One record more than there are addresses; the last is never addressed.
inline constexpr std::size_t kCardRecords = 17;

/// Command queues: one per address, served in this order, then the system queue
/// for discovery and card configuration requests.
inline constexpr std::size_t kQueues = 17;
inline constexpr std::size_t kSystemQueue = 16;

/// First payload byte of a request.
inline constexpr char kHardwareCheck = 0x40;
inline constexpr char kDiscovery = 0x30;
inline constexpr char kPoll = 0x20;
inline constexpr char kOutput = 0x10;
inline constexpr char kConfiguration = 0x50;

/// The rest of the hardware check request.
inline constexpr char kHardwareCheckByte1 = 0x6F;
inline constexpr char kHardwareCheckByte2 = static_cast<char>(0x9A);

/// First payload byte of an answer.
inline constexpr char kDiscoveryAnswer = '1';
inline constexpr char kPioAnswer = 'Q';
inline constexpr char kPollAnswer = '!';

/// Payload offset of the card address in poll and PIO answers, and of the first
/// kind code in a discovery answer.
inline constexpr std::size_t kAnswerAddress = 1;
inline constexpr std::size_t kAnswerKinds = 1;
/// Payload offset of a poll answer's data.
inline constexpr std::size_t kPollData = 2;
/// Payload offset and size of the version text in the hardware check answer; a status byte
/// comes before the text.
inline constexpr std::size_t kVersion = 1;
inline constexpr std::size_t kVersionSize = 4;
/// Bytes of a PIO answer that a card record keeps.
inline constexpr std::size_t kPioBytes = 16;

/// The most request bytes that go out in one frame; the rest is cut. Only a poll frame that
/// has grown over very many reconnects gets this long.
inline constexpr std::size_t kMaxRequest = 254;
/// The most answer bytes that are kept, length byte included. A whole answer has 128 bytes
/// at most, because the length byte is signed; the other 8 are room that the buffer has
/// always had to spare, and the host never looks at them.
inline constexpr std::size_t kReceiveBuffer = 136;
/// The most bytes of one read.
inline constexpr std::size_t kReadSize = 255;

/// The longest answer payload, because the length byte is signed.
inline constexpr std::size_t kMaxAnswer = 127;

}  // namespace wire
