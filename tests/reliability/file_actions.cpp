// What happens to the log.
#include "tests/reliability/actions.h"

namespace reliability {
namespace {

void rotateLog(SoakStage& stage, Random& /*random*/) {
    stage.rotateLog();
}

void takeLogFolder(SoakStage& stage, Random& /*random*/) {
    stage.moveLogFolder(true);
}

void returnLogFolder(SoakStage& stage, Random& /*random*/) {
    stage.moveLogFolder(false);
}

constexpr Action kActions[] = {
    {"rotate the log", 2, rotateLog},
    {"log folder gone", 1, takeLogFolder},
    {"log folder back", 3, returnLogFolder},
};

}  // namespace

std::span<const Action> fileActions() {
    return kActions;
}

}  // namespace reliability
