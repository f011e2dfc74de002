// Fuzzes the way of an answer of the bus, always in a whole frame, into the card table and
// on into reports and polls. Between the answers the input acts on the table as the console
// and the IO clients do.
//
// An input is a sequence of steps. A byte up to 7F is the length of an answer, whose bytes
// follow. The bytes from 80 on are listed in namespace step.

#include <algorithm>
#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "bus/card_kinds.h"
#include "bus/wire.h"
#include "control/io_forms.h"
#include "fuzz/support/reports.h"
#include "fuzz/support/target.h"
#include "tests/support/doubles/fake_serial_port.h"

namespace {

constexpr std::size_t kMostBytes = 2000;
/// The limit of unanswered requests: each costs 150000 reads, and more would only make the
/// runs slow.
constexpr int kMostSilences = 1;

/// The steps other than an answer, with the bytes that follow.
namespace step {
constexpr std::uint8_t kFirst = 0x80;
constexpr std::uint8_t kForget = 0x80;         ///< clears all cards, as a forced discovery does
constexpr std::uint8_t kGlobalPolling = 0x81;  ///< switches polling of all cards on or off
constexpr std::uint8_t kCardPolling = 0x82;    ///< the address: switches its polling on or off
constexpr std::uint8_t kIoBlock = 0x83;        ///< address, block and value of an IO command
constexpr std::uint8_t kSilence = 0x84;        ///< leaves the next request unanswered
}  // namespace step

const std::string kVersionAnswer = std::string("\x05\x06") + "1.04";

class AnsweringLine final : public support::SerialLine {
  public:
    explicit AnsweringLine(fuzz::Input& input) : input_(input) {}

    ssize_t read(char* buffer, std::size_t /*size*/) override {
        if (answer_.empty()) {
            return -1;
        }
        std::copy(answer_.begin(), answer_.end(), buffer);
        const auto count = static_cast<ssize_t>(answer_.size());
        answer_.clear();
        return count;
    }

    void written(std::string_view frame) override {
        fuzz::require(frame.size() > 1 && frame.size() <= 255, "a frame of 1 to 254 bytes");
        fuzz::require(static_cast<std::uint8_t>(frame[0]) == frame.size() - 1,
                      "the length byte counts the others");
        answer_ = frame[1] == wire::kHardwareCheck ? kVersionAnswer : nextAnswer();
        discovered_ = discovered_ || (answer_.size() > 1 && answer_[1] == wire::kDiscoveryAnswer);
    }

    void beSilentOnce() { silent_ = silences_++ < kMostSilences; }
    void setNextLength(std::uint8_t length) { length_ = length; }
    /// True if a discovery answer has come since the last call.
    bool takeDiscovered() { return std::exchange(discovered_, false); }

  private:
    std::string nextAnswer() {
        if (std::exchange(silent_, false)) {
            return {};
        }
        const std::uint8_t length = std::exchange(length_, std::uint8_t{0});
        std::string answer(1, static_cast<char>(length));
        answer += input_.bytes(length);
        answer.resize(std::size_t{length} + 1);
        return answer;
    }

    fuzz::Input& input_;
    std::string answer_;
    std::uint8_t length_ = 0;
    bool silent_ = false;
    int silences_ = 0;
    bool discovered_ = false;
};

class AnsweredLink {
  public:
    explicit AnsweredLink(std::string_view bytes) : input_(bytes), line_(input_) {
        link_ = support::makeLink(line_, cards_, &reports_);
        for (PERIFCARD& card : cards_) {
            card.clearPerifCard();
        }
        // This cycle makes the hardware check and the first discovery, which finds no card.
        link_->OnTask();
    }

    void run() {
        while (!input_.ended()) {
            const std::uint8_t next = input_.byte();
            if (next < step::kFirst) {
                line_.setNextLength(next);
                // The answer of the input is the answer to this request.
                link_->commandQueue(wire::kSystemQueue).ToQueue({wire::kConfiguration, 3, 1});
                cycle();
            } else {
                act(next);
            }
        }
        cycle();
    }

  private:
    void cycle() {
        link_->OnTask();
        const fuzz::LastReports reports = fuzz::takeReports(reports_);
        const bool rediscovered = line_.takeDiscovered();
        for (const auto& [place, value] : reports) {
            const auto& [address, block] = place;
            fuzz::require(block < PERIFCARD::kAnalogueChannels, "a report of an input block");
            // A discovery in the same cycle may have set the value anew.
            fuzz::require(rediscovered || cards_[address].values[block] == value,
                          "what is reported is what the table holds");
        }
        requireTable();
    }

    void requireTable() const {
        for (std::size_t address = 0; address < wire::kAddresses; ++address) {
            const PERIFCARD& card = cards_[address];
            fuzz::require(card.sampleCount >= 0 && card.sampleCount <= PERIFCARD::kAveraging,
                          "at most six samples are summed");
            fuzz::require(std::string_view(card.kindName).size() < 40, "a name of 39 characters");
            const char first = card.pioAnswer(0);
            fuzz::require(first == 0 || first == wire::kPioAnswer, "a PIO answer or none");
        }
        fuzz::require(cards_[wire::kAddresses].kindCode == 0, "no answer is for the last record");
    }

    void act(std::uint8_t what) {
        const std::size_t address = input_.byte() % wire::kAddresses;
        switch (what) {
            case step::kForget:
                std::for_each_n(cards_.begin(), wire::kAddresses,
                                [](PERIFCARD& card) { card.clearPerifCard(); });
                break;
            case step::kGlobalPolling:
                link_->globalPolling = !link_->globalPolling;
                break;
            case step::kCardPolling:
                cards_[address].pollingOn = !cards_[address].pollingOn;
                break;
            case step::kIoBlock:
                writeBlock(address);
                break;
            case step::kSilence:
                line_.beSilentOnce();
                break;
            default:
                break;
        }
    }

    void writeBlock(std::size_t address) {
        constexpr std::string_view kDigits = "0123456789ABCDEF";
        const std::uint8_t block = input_.byte() % PERIFCARD::kBlocks;
        const std::uint8_t value = input_.byte();
        const std::string command{'a',
                                  kDigits[address],
                                  'b',
                                  kDigits[block],
                                  'd',
                                  kDigits[value / 16U],
                                  kDigits[value % 16U]};
        if (const auto frame = translateOutput(command, cards_)) {
            link_->commandQueue(frame->address).ToQueue(frame->bytes);
        }
    }

    fuzz::Input input_;
    AnsweringLine line_;
    CardTable cards_;
    ZLQUEUE reports_;
    std::unique_ptr<SERIAL_INTERFACE> link_;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    AnsweredLink(fuzz::textOf(data, size, kMostBytes)).run();
    return 0;
}
