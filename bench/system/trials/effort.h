#pragma once

#include <chrono>
#include <cstddef>
#include <vector>

#include "bench/report/figures.h"

namespace bench {

/// The amount of each measure in one round, and the number of rounds.
struct Effort {
    unsigned rounds = 5;
    /// Numbers of polled cards, ascending.
    std::vector<unsigned> cards{kCards.begin(), kCards.end()};
    std::chrono::milliseconds scans{500};
    std::chrono::milliseconds rest{1500};
    /// The time that a daemon runs without an adapter. A daemon searches at its start and then
    /// every two seconds, so just less than an even number of seconds has each search with its
    /// pause. A daemon serves its clients after three seconds.
    std::chrono::milliseconds searches{5900};
    std::size_t changes = 300;
    std::size_t changesPerSpeed = 60;
    std::size_t commands = 400;
    std::size_t singles = 1500;
    std::size_t flood = 3000;
    // In a crowd, where little has a known duration, most measures end after a time.
    std::chrono::milliseconds crowdedScans{5000};
    std::chrono::milliseconds crowdedFloor{2000};
    std::chrono::milliseconds crowdedCommands{2000};
};

/// This shows within a minute that everything works; the figures say little.
inline Effort quickEffort() {
    Effort effort;
    effort.rounds = 1;
    effort.cards = {kShareCards.begin(), kShareCards.end()};
    effort.scans = std::chrono::milliseconds(200);
    effort.rest = std::chrono::milliseconds(300);
    effort.searches = std::chrono::milliseconds(3900);
    effort.changes = 30;
    effort.changesPerSpeed = 5;
    effort.commands = 100;
    effort.singles = 200;
    effort.flood = 500;
    effort.crowdedScans = std::chrono::milliseconds(2000);
    effort.crowdedFloor = std::chrono::milliseconds(1000);
    effort.crowdedCommands = std::chrono::milliseconds(1000);
    return effort;
}

}  // namespace bench
