#pragma once

#include <chrono>
#include <string>
#include <vector>

#include "tests/golden/item.h"

namespace golden {

/// One action and the items that it brings about.
struct Step {
    int line = 0;
    std::string verb;
    /// The rest of the action's line.
    std::string argument;
    /// Items that the verb itself demands; they come before those of `expected`.
    std::vector<Item> implied;
    /// Items that the dialogue writes below the action.
    std::vector<Item> expected;
    /// How long rebuild waits after the last item of the step.
    std::chrono::milliseconds settle{};

    std::string text() const { return argument.empty() ? verb : verb + ' ' + argument; }
};

}  // namespace golden
