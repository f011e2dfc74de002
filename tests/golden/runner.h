#pragma once

#include <functional>
#include <string>
#include <vector>

#include "tests/golden/dialogue.h"
#include "tests/golden/item.h"

namespace golden {

/// Called with every action and item of a run as it happens.
struct Listener {
    std::function<void(const Step&)> action = [](const Step&) {};
    std::function<void(const Item&)> item = [](const Item&) {};
};

struct Outcome {
    /// A description of what went wrong, of several lines. Empty when the dialogue went as
    /// written.
    std::string failure;
    /// True when the daemon gave up an answer that the simulated bus did give, or when a thread
    /// waited long for a processor: the machine was too slow for the daemon's time limits, and
    /// the failure may come from that. False when the daemon ended other than the dialogue says
    /// or printed an error: a slow machine is no reason for that.
    bool machineTooSlow = false;
};

/// Plays a dialogue once and compares the items that come with its expectations.
Outcome check(const Dialogue& dialogue, const Listener& listener = {});

/// Plays a dialogue and returns the items of each step. Throws std::exception when an action is
/// impossible.
std::vector<std::vector<Item>> record(const Dialogue& dialogue);

}  // namespace golden
