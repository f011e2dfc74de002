#include "lib/ports/opening_plan.h"

#include <algorithm>

namespace zolt_ports {
namespace {

/// How long a port that refuses may still be about to listen again: the daemon takes
/// some 4 seconds after its client has left.
constexpr OpeningPlan::Seconds kRefusedWindow{6};

}  // namespace

OpeningPlan::Clock::time_point OpeningPlan::after(Clock::time_point now, Seconds time) {
    return now + std::chrono::duration_cast<Clock::duration>(time);
}

OpeningPlan::Next OpeningPlan::refused(Clock::time_point now) {
    if (!refusedEnd_) {
        refusedEnd_ = after(now, std::min(kRefusedWindow, timeout_));
    }
    if (bannerEnd_ && now >= *bannerEnd_) {
        return Next::kHeld;
    }
    return now < *refusedEnd_ ? Next::kRetry : Next::kNoDaemon;
}

OpeningPlan::Next OpeningPlan::turnedAway(Clock::time_point now) const {
    return bannerEnd_ && now >= *bannerEnd_ ? Next::kHeld : Next::kRetry;
}

void OpeningPlan::connected(Clock::time_point now) {
    refusedEnd_.reset();
    // Only the first connection counts: a client that is turned away again and again
    // gives up, too.
    if (!bannerEnd_) {
        bannerEnd_ = after(now, timeout_);
    }
}

OpeningPlan::Clock::time_point OpeningPlan::end(Clock::time_point now) const {
    return bannerEnd_.value_or(after(now, timeout_));
}

}  // namespace zolt_ports
