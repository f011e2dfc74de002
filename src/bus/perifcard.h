#pragma once

#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>

#include "bus/wire.h"
#include "common/byte_list.h"
#include "thread/MutexClass.h"
#include "thread/shared_field.h"

/// What PERIFCARD::cardClass says.
enum class CardClass : std::int32_t {
    kOutput = 0,  ///< gets output frames
    kInput = 1,   ///< the only class that is polled
    kNone = 3,    ///< no usable card: the slot is empty or the kind is unknown
};

/// One card's record in the card table: what sits at a bus address and its last
/// known data. Owned by ZOLT; the serial task writes it, the master loop reads
/// it and writes where a member says so. There is no lock over a record: each
/// number is atomic, and a reader tolerates a value one cycle old.
class PERIFCARD {
  public:
    static constexpr std::size_t kAnalogueChannels = 6;
    static constexpr std::size_t kBlocks = 16;
    /// Poll answers that are averaged into one analogue reading.
    static constexpr std::int32_t kAveraging = 6;

    /// Makes the record that of an empty slot; the address and the sample count stay. The
    /// master loop calls this before it sends a discovery request.
    void clearPerifCard() ZOLT_EXCLUDES(pollFrameLock_);

    /// The master loop forgets the PIO answer, so that an old one cannot pass for the answer
    /// to the next request.
    void ClearPIOAnswer();
    /// The serial task keeps the first 16 bytes of a 'Q' answer; missing ones are 0.
    void storePioAnswer(const std::array<char, 16>& answer);
    /// One byte of the last PIO answer. Once byte 0 is 'Q', the other bytes belong to the
    /// same answer.
    /// REQUIRES: `index` is at most 15.
    char pioAnswer(std::size_t index) const;

    /// The poll frame is a list, so it alone of all fields has a lock.
    ByteList pollFrame() ZOLT_EXCLUDES(pollFrameLock_);
    void appendToPollFrame(const ByteList& bytes) ZOLT_EXCLUDES(pollFrameLock_);

    std::atomic<CardClass> cardClass{CardClass::kNone};
    /// Data bytes the card carries; the third byte of its poll frame.
    std::atomic<std::int32_t> dataLength{0};
    /// 0 to 15, written at discovery.
    std::atomic<std::uint8_t> address{0};
    /// The code of the kind, as received in the discovery answer.
    std::atomic<char> kindCode{0};
    /// Display name of the kind, at most 39 characters of static storage.
    std::atomic<const char*> kindName{"EMPTY"};
    /// The last known data bytes; the output translation writes them, too.
    std::array<std::atomic<std::uint8_t>, kBlocks> values{};
    /// 1 where the value of the same index changed in the last poll answer. The serial task
    /// alone uses these.
    std::array<std::atomic<std::uint8_t>, kBlocks> changed{};
    /// The switch of this card's polling, which the master loop sets; discovery switches
    /// it on for an input card.
    SharedField<bool> pollingOn{false};
    /// Running sums of the channels, answers summed so far, and answers to sum.
    std::array<std::atomic<std::int32_t>, kAnalogueChannels> analogueSums{};
    std::atomic<std::int32_t> sampleCount{0};
    std::atomic<std::int32_t> averagingCount{kAveraging};

  private:
    std::array<std::atomic<char>, 16> pioAnswer_{};
    CMutexClass pollFrameLock_;
    ByteList pollFrame_ ZOLT_GUARDED_BY(pollFrameLock_);
};

/// The card table: one record for each bus address, and one that is never addressed.
using CardTable = std::array<PERIFCARD, wire::kCardRecords>;
