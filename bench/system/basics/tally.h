#pragma once

#include <cstddef>

namespace bench {

/// Counts over the whole run, discarded attempts included.
struct Tally {
    std::size_t commandsSent = 0;
    std::size_t commandsLost = 0;
    std::size_t reportsLost = 0;
    std::size_t linkLosses = 0;
    /// Links that the daemon gave up although the answer had been given in time.
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
