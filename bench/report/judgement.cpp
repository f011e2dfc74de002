#include "bench/report/judgement.h"

#include <sstream>

namespace bench {

std::size_t linkLosses(const std::string& log) {
    std::size_t losses = 0;
    bool found = false;
    std::istringstream lines(log);
    for (std::string line; std::getline(lines, line);) {
        if (line.find("hardware found") != std::string::npos) found = true;
        if (found && line.find("comm timeout") != std::string::npos) {
            found = false;
            ++losses;
        }
    }
    return losses;
}

bool inStep(const PollCounts& counts, unsigned cards) {
    for (std::size_t card = 0; card < counts.size(); ++card) {
        if (card >= cards && counts[card] != 0) return false;
        if (card < cards && (counts[card] + 1 < counts[0] || counts[card] > counts[0] + 1)) {
            return false;
        }
    }
    return counts[0] > 0;
}

std::size_t missing(const std::vector<std::uint8_t>& sent,
                    const std::vector<std::uint8_t>& arrived) {
    std::array<std::size_t, 256> come{};
    for (const std::uint8_t value : arrived) ++come[value];
    std::size_t count = 0;
    for (const std::uint8_t value : sent) {
        if (come[value] == 0) {
            ++count;
        } else {
            --come[value];
        }
    }
    return count;
}

}  // namespace bench
