#pragma once

#include <string>

namespace bench {

/// What the contestants have to share the machine with, besides the cards and their client.
struct Crowd {
    /// The whole run has one processor, as on a small machine.
    bool oneProcessor = false;
    /// The number of other processes that compute without a pause.
    unsigned neighbours = 0;

    /// In a crowd every thread has its ordinary place and priority; otherwise the cards and
    /// the client have a processor for themselves (placement.h).
    bool any() const { return oneProcessor || neighbours > 0; }
    /// "one processor for everything, 5 busy processes beside"; empty without a crowd.
    std::string describe() const;
};

}  // namespace bench
