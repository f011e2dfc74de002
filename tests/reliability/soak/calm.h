#pragma once

#include <cstddef>

#include "tests/reliability/accounts/ledger.h"
#include "tests/reliability/accounts/random.h"
#include "tests/reliability/soak/soak_stage.h"

namespace reliability {

/// What calm phases have found so far.
struct CalmCounts {
    Tally commands;
    Tally reports;
    /// Of storms, and how many of them a lost link or a connection that ended
    /// would have explained.
    Tally stormCommands;
    std::size_t mayBeLost = 0;
    /// Phases that were begun again because the link was lost in them: on a busy
    /// machine the daemon may get no processor for so long.
    std::size_t repeated = 0;
};

/// Ends a storm and insists that the daemon serves again as if nothing had been:
/// every client, the console, the link, discovery, commands of the storm that
/// still wait, then commands and input changes of which none may be lost or come
/// twice. Throws Failure.
void calmDown(SoakStage& stage, Random& random, CalmCounts& counts);

}  // namespace reliability
