#include "bus/poll_data.h"

#include <array>

bool takeBlocks(PERIFCARD& card, PollData data) {
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

bool takeAverages(PERIFCARD& card, PollData data) {
    if (card.sampleCount < card.averagingCount) {
        for (std::size_t channel = 0; channel < data.size(); ++channel) {
            card.analogueSums[channel] += data[channel];
        }
        ++card.sampleCount;
        return false;
    }
    // The samples of this answer are dropped: they only set the reporting rate.
    std::array<std::uint8_t, PERIFCARD::kAnalogueChannels> averages{};
    for (std::size_t channel = 0; channel < data.size(); ++channel) {
        averages[channel] =
            static_cast<std::uint8_t>(card.analogueSums[channel] / card.sampleCount);
        card.analogueSums[channel] = 0;
    }
    card.sampleCount = 0;
    return takeBlocks(card, PollData(averages).first(data.size()));
}
