#include "bus/polling.h"

#include <array>
#include <cstdio>

#include "bus/card_kinds.h"

namespace {

bool takeChanges(PERIFCARD& card, std::span<const std::uint8_t> data) {
    bool any = false;
    for (std::size_t block = 0; block < data.size(); ++block) {
        if (card.values[block] != data[block]) {
            card.values[block] = data[block];
            card.changed[block] = 1;
            any = true;
        }
    }
    return any;
}

bool takeAnalogue(PERIFCARD& card, std::span<const std::uint8_t> data) {
    constexpr std::size_t kChannels = PERIFCARD::kAnalogueChannels;
    if (card.sampleCount < card.averagingCount) {
        for (std::size_t channel = 0; channel < kChannels; ++channel) {
            card.analogueSums[channel] += data[channel];
        }
        ++card.sampleCount;
        return false;
    }
    // This answer's own data is not counted: it only sets the reporting rate.
    std::array<std::uint8_t, kChannels> readings{};
    for (std::size_t channel = 0; channel < kChannels; ++channel) {
        readings[channel] =
            static_cast<std::uint8_t>(card.analogueSums[channel] / card.sampleCount);
        card.analogueSums[channel] = 0;
    }
    card.sampleCount = 0;
    return takeChanges(card, readings);
}

}  // namespace

bool takePollData(PERIFCARD& card,
                  std::span<const std::uint8_t, PERIFCARD::kAnalogueChannels> data) {
    for (auto& flag : card.changed) {
        flag = 0;
    }
    switch (card.kindCode) {
        case card_kind::kDigitalInput:
            return takeChanges(card, data.first(2));
        case card_kind::kKeyMatrix:
            return takeChanges(card, data.first(1));
        case card_kind::kAnalogueInput:
            return takeAnalogue(card, data);
        default:
            return false;
    }
}

std::string inputReport(unsigned address, unsigned block, std::uint8_t value) {
    std::array<char, 32> line{};
    std::snprintf(line.data(), line.size(), "a%Xb%Xd%02X", address, block, value);
    return line.data();
}

std::vector<std::string> changeReports(const PERIFCARD& card, unsigned address) {
    std::vector<std::string> reports;
    for (unsigned block = 0; block < PERIFCARD::kBlocks; ++block) {
        if (card.changed[block] != 0) {
            reports.push_back(inputReport(address, block, card.values[block]));
        }
    }
    return reports;
}
