#pragma once

#include <cstddef>

namespace bench {

/// What counts over the whole run, attempts that are discarded included.
struct Tally {
    std::size_t commandsSent = 0;
    std::size_t commandsLost = 0;
    std::size_t reportsLost = 0;
    std::size_t linkLosses = 0;
    /// Answers that were given in time and for which the daemon gave its link up.
    std::size_t answersMissed = 0;

    Tally& operator+=(const Tally& other) {
        commandsSent += other.commandsSent;
        commandsLost += other.commandsLost;
        reportsLost += other.reportsLost;
        linkLosses += other.linkLosses;
        answersMissed += other.answersMissed;
        return *this;
    }
};

}  // namespace bench
