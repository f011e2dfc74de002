// Actions on the log, the disk and the descriptors.
#include "tests/reliability/soak/actions.h"

namespace reliability {
namespace {

void rotateLog(SoakStage& stage, Random& /*random*/) {
    stage.disk().rotateLog();
}

void takeLogFolder(SoakStage& stage, Random& /*random*/) {
    stage.disk().moveLogFolder(true);
}

void returnLogFolder(SoakStage& stage, Random& /*random*/) {
    stage.disk().moveLogFolder(false);
}

void fillDisk(SoakStage& stage, Random& /*random*/) {
    stage.disk().fill();
}

void freeDisk(SoakStage& stage, Random& /*random*/) {
    stage.disk().free();
}

// The limits reach from no descriptor at all, not even for a file that is opened again, to
// about as many as the daemon has in service.
void limitDescriptors(SoakStage& stage, Random& random) {
    constexpr std::size_t kNone = 3;
    constexpr std::size_t kInService = 17;
    const std::size_t limit = kNone + random.below(kInService - kNone + 1);
    stage.limitDescriptors(limit, std::chrono::milliseconds(500 + random.below(2000)));
}

constexpr Action kSystemActions[] = {
    {"rotate the log", 2, rotateLog},        {"log folder gone", 1, takeLogFolder},
    {"log folder back", 3, returnLogFolder}, {"disk full", 1, fillDisk},
    {"disk with room again", 2, freeDisk},   {"no descriptor left", 2, limitDescriptors},
};

}  // namespace

std::span<const Action> systemActions() {
    return kSystemActions;
}

}  // namespace reliability
