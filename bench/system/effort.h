#pragma once

#include <chrono>
#include <cstddef>
#include <vector>

namespace bench {

/// How much is measured in one round, and how many rounds there are.
struct Effort {
    unsigned rounds = 5;
    /// Numbers of polled cards, ascending.
    std::vector<unsigned> cards{1, 2, 4, 8, 12, 16};
    std::chrono::milliseconds scans{500};
    std::chrono::milliseconds rest{1500};
    std::size_t changes = 300;
    std::size_t changesPerSpeed = 60;
    std::size_t commands = 400;
    std::size_t singles = 1500;
    std::size_t flood = 3000;
};

/// Shows within a minute that everything works; its figures say little.
inline Effort quickEffort() {
    using std::chrono::milliseconds;
    return {1, {1, 8, 16}, milliseconds(200), milliseconds(300), 30, 5, 100, 200, 500};
}

}  // namespace bench
