#pragma once

#include <span>
#include <vector>

#include "tests/reliability/accounts/random.h"
#include "tests/reliability/soak/soak_stage.h"

namespace reliability {

/// One thing that may happen in a storm. What it does follows from the numbers
/// it draws; it draws the same ones whatever state the stage is in, and does
/// nothing where the state does not allow it.
struct Action {
    const char* name;
    /// How often it is drawn, relative to the others.
    std::size_t weight;
    void (*perform)(SoakStage& stage, Random& random);
};

std::span<const Action> clientActions();
std::span<const Action> consoleActions();
std::span<const Action> busActions();
std::span<const Action> systemActions();

/// More at once than storms bring, so that the daemon's heap has had its largest
/// size before anybody looks whether it grows. All clients have been greeted.
void floodAtMost(SoakStage& stage);

/// All of them.
std::vector<Action> allActions();
/// One of them, by weight.
const Action& drawAction(const std::vector<Action>& actions, Random& random);

}  // namespace reliability
