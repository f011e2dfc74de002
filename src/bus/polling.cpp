#include "bus/polling.h"

#include <array>
#include <cstdio>

#include "bus/card_kinds.h"

bool takePollData(PERIFCARD& card,
                  std::span<const std::uint8_t, PERIFCARD::kAnalogueChannels> data) {
    for (auto& flag : card.changed) {
        flag = 0;
    }
    const CardKind& kind = kindOf(card);
    return kind.takeData != nullptr &&
           kind.takeData(card, data.first(static_cast<std::size_t>(kind.dataLength)));
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
