#pragma once

#include <span>
#include <vector>

#include "tests/reliability/accounts/random.h"
#include "tests/reliability/soak/soak_stage.h"

namespace reliability {

/// One thing that may happen in a storm. The numbers that an action draws decide what it
/// does. An action draws the same numbers in every state of the stage, and does nothing in
/// a state that does not allow it.
struct Action {
    const char* name;
    /// The chance that this action is drawn, relative to the weights of the others.
    std::size_t weight;
    void (*perform)(SoakStage& stage, Random& random);
};

std::span<const Action> clientActions();
std::span<const Action> consoleActions();
std::span<const Action> busActions();
std::span<const Action> systemActions();

/// Sends more at once than any storm does, so that the daemon's heap reaches its largest
/// size before the soak watches its growth. REQUIRES: all clients have been greeted.
void floodAtMost(SoakStage& stage);

/// The actions of all four tables.
std::vector<Action> allActions();
/// Draws one of the actions by their weights.
const Action& drawAction(const std::vector<Action>& actions, Random& random);

}  // namespace reliability
