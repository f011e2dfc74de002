#include "tests/reliability/accounts/traffic.h"

#include <gtest/gtest.h>

using reliability::Traffic;

namespace {

TEST(LinkLossExplains, OneCommandForEachLoss) {
    Traffic::Result result;
    result.commands.lost = 2;
    EXPECT_TRUE(result.linkLossExplains(2, false));
    EXPECT_FALSE(result.linkLossExplains(1, false));
}

TEST(LinkLossExplains, NothingWithoutALoss) {
    EXPECT_FALSE(Traffic::Result().linkLossExplains(0, true));
}

TEST(LinkLossExplains, ReportsThatBothPortsMiss) {
    Traffic::Result result;
    result.reportsAtIo.lost = 1;
    EXPECT_FALSE(result.linkLossExplains(1, false));
    result.reportsAtMon.lost = 1;
    EXPECT_TRUE(result.linkLossExplains(1, false));
}

TEST(LinkLossExplains, NoLineOfIoThatTheMonitorMisses) {
    Traffic::Result result;
    result.linesAtMon.lost = 1;
    EXPECT_FALSE(result.linkLossExplains(1, true));
}

TEST(LinkLossExplains, NothingThatComesTwiceOrOutOfOrder) {
    Traffic::Result twice;
    twice.commands.doubled = 1;
    EXPECT_FALSE(twice.linkLossExplains(1, true));
    Traffic::Result disordered;
    disordered.reportsAtIo.outOfOrder = 1;
    EXPECT_FALSE(disordered.linkLossExplains(1, true));
}

TEST(LinkLossExplains, PresetOutputsOnlyAfterADiscovery) {
    Traffic::Result result;
    result.commands.unknown = 1;
    result.presetFrames = 1;
    EXPECT_TRUE(result.linkLossExplains(1, true));
    EXPECT_FALSE(result.linkLossExplains(1, false));
}

}  // namespace
