#pragma once

#include <cstddef>

#include "tests/reliability/accounts/ledger.h"
#include "tests/reliability/accounts/random.h"
#include "tests/reliability/soak/soak_stage.h"

namespace reliability {

/// The results of all calm phases so far.
struct CalmCounts {
    Tally commands;
    Tally reports;
    /// The commands of the storms, and how many of them may be lost because the link was
    /// lost or a connection had ended.
    Tally stormCommands;
    std::size_t mayBeLost = 0;
    /// The number of phases that were repeated because the link was lost meanwhile, which
    /// happens if a busy machine gives the daemon no processor for the time of an answer.
    std::size_t repeated = 0;
};

/// Ends a storm and checks that the daemon serves again as if nothing had happened: every
/// client, the console, the link, discovery, and the commands of the storm that still wait.
/// Then come commands and input changes of which none may be lost or doubled. Throws
/// Failure.
void calmDown(SoakStage& stage, Random& random, CalmCounts& counts);

}  // namespace reliability
