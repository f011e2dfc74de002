#include "tests/reliability/accounts/input_cards.h"

#include "tests/support/text/hex_number.h"

namespace reliability {
namespace {

constexpr std::size_t kChannels = 6;
// Six polls give the average; the seventh causes the report.
constexpr std::size_t kPollsPerReading = 7;
// The number of readings that wait in the script. They last for a while in which this
// process gets no processor.
constexpr std::size_t kAhead = 200;

}  // namespace

std::string reportText(unsigned address, std::size_t block, unsigned value) {
    return "a" + support::hexNumber(address, 1) + "b" + support::hexNumber(block, 1) + "d" +
           support::hexNumber(value, 2);
}

std::vector<std::string> InputCard::change(BusWatch& bus) {
    value_ = (value_ + 1) & 0xFF;
    const std::string address = support::hexNumber(address_, 1);
    if (kind_ == Kind::kKeyMatrix) {
        bus.control("key " + address + " " + support::hexNumber(value_, 2));
        return {reportText(address_, 0, value_)};
    }
    std::vector<std::string> reports;
    for (unsigned block = 0; block < 2; ++block) {
        // The second block has other values than the first, so that their reports differ.
        const unsigned value = (value_ + block * 0x80) & 0xFF;
        bus.control("set " + address + " " + std::to_string(block) + " " +
                    support::hexNumber(value, 2));
        reports.push_back(reportText(address_, block, value));
    }
    return reports;
}

AnalogueScript::AnalogueScript(BusWatch& bus, unsigned address, std::size_t readings)
    : bus_(bus), address_(address), readings_(readings), channels_(kChannels, 0) {}

std::vector<std::string> AnalogueScript::refill() {
    std::vector<std::string> reports;
    const std::size_t played = bus_.pollsOf(address_) / kPollsPerReading;
    while (queued_ < readings_ && queued_ < played + kAhead) {
        const std::size_t channel = queued_ % kChannels;
        channels_[channel] = (channels_[channel] + 1) & 0xFF;
        ++queued_;
        // The last reading stays forever.
        queueReading(queued_ == readings_ ? "always" : std::to_string(kPollsPerReading) + " times");
        reports.push_back(reportText(address_, channel, channels_[channel]));
    }
    return reports;
}

void AnalogueScript::queueReading(const std::string& times) {
    std::string answer = "fault answer 21 " + support::hexNumber(address_, 2);
    for (const unsigned value : channels_) answer += " " + support::hexNumber(value, 2);
    bus_.control(answer + " at " + support::hexNumber(address_, 1) + " for poll " + times);
}

}  // namespace reliability
