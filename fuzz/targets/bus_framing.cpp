// Fuzzes the reading of frames: hardware check, discovery, polls, an output and a
// configuration request on a line that gives any bytes in any pieces.
//
// An input is a sequence of reads. The first byte of a read says what the host finds. Up to
// FC it is the number of bytes, which follow; a host with a smaller buffer gets the rest
// with its next read. 00 means that there is nothing yet. The bytes above FC are listed in
// namespace special.

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <memory>
#include <string>
#include <string_view>

#include "bus/wire.h"
#include "fuzz/support/reports.h"
#include "fuzz/support/target.h"
#include "tests/support/doubles/fake_serial_port.h"

namespace {

constexpr std::size_t kMostBytes = 2000;
constexpr int kMostCycles = 100;
/// The limit of silences: each costs 150000 reads, and more would only make the runs slow.
constexpr int kMostSilences = 1;

/// Reads that find no bytes of the input.
namespace special {
constexpr std::uint8_t kSilence = 0xFF;  ///< there is nothing until the next request
constexpr std::uint8_t kHangUp = 0xFE;   ///< the adapter has gone: end of file
constexpr std::uint8_t kVersion = 0xFD;  ///< the correct answer to the hardware check
}  // namespace special

class WildLine final : public support::SerialLine {
  public:
    explicit WildLine(std::string_view bytes) : input_(bytes) {}

    bool ended() const { return input_.ended() && waiting_.empty(); }

    ssize_t read(char* buffer, std::size_t size) override {
        if (silent_) {
            return -1;
        }
        if (!waiting_.empty()) {
            return deliver(buffer, size);
        }
        if (input_.ended()) {
            // Enough zeros complete every answer.
            std::memset(buffer, 0, size);
            return static_cast<ssize_t>(size);
        }
        switch (const std::uint8_t next = input_.byte()) {
            case special::kSilence:
                silent_ = silences_++ < kMostSilences;
                return -1;
            case special::kHangUp:
                return 0;
            case special::kVersion:
                waiting_ = std::string("\x05\x06") + "1.04";
                return deliver(buffer, size);
            default:
                waiting_ = input_.bytes(next);
                return waiting_.empty() ? -1 : deliver(buffer, size);
        }
    }

    void written(std::string_view frame) override {
        fuzz::require(!frame.empty() && frame.size() <= 255, "a frame of 1 to 255 bytes");
        fuzz::require(static_cast<std::uint8_t>(frame[0]) == frame.size() - 1,
                      "the length byte counts the others");
        silent_ = false;
    }

  private:
    ssize_t deliver(char* buffer, std::size_t size) {
        const std::size_t count = std::min(size, waiting_.size());
        std::copy_n(waiting_.begin(), count, buffer);
        waiting_.erase(0, count);
        return static_cast<ssize_t>(count);
    }

    fuzz::Input input_;
    std::string waiting_;
    bool silent_ = false;
    int silences_ = 0;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    WildLine line(fuzz::textOf(data, size, kMostBytes));
    CardTable cards;
    ZLQUEUE reports;
    const auto link = support::makeLink(line, cards, &reports);
    // A port that fails the hardware check stays under test forever.
    const auto serves = [&link] {
        return link->linkState() != SERIAL_INTERFACE::LinkState::kUnderTest;
    };
    for (int cycle = 0; cycle < kMostCycles && !line.ended() && serves(); ++cycle) {
        link->commandQueue(5).ToQueue({wire::kOutput, 5, 2, '\x7F', '\x7F'});
        link->commandQueue(wire::kSystemQueue).ToQueue({wire::kConfiguration, 3, 1});
        link->OnTask();
        fuzz::takeReports(reports);
    }
    link->OnTask();
    fuzz::require(cards[wire::kAddresses].kindCode == 0, "no answer is for the last record");
    return 0;
}
