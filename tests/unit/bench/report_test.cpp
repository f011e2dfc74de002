#include "bench/report/report.h"

#include <gtest/gtest.h>

#include "tests/unit/bench/sample_report.h"

namespace bench {
namespace {

TEST(Report, KnowsItsContestantsByTheirRoles) {
    const Report report = sampleReport();
    EXPECT_EQ(report.labelOf(Role::kTunedGateway), "tuned");
    EXPECT_EQ(report.labelsOf(Role::kDaemon), std::vector<std::string>{"zolt"});
    EXPECT_EQ(Report().labelOf(Role::kDaemon), std::nullopt);
}

TEST(Report, TakesNineBytesForAPollOnTheWire) {
    EXPECT_NEAR(wireScans(1), 5120, 1e-6);
    EXPECT_NEAR(wireScans(16), 320, 1e-6);
}

TEST(Derived, SharesAreOfTheSameRound) {
    const Report report = sampleReport();
    const std::vector<double> ofBare{100, 84};
    EXPECT_EQ(report.results.rounds("scans.1.bare", "zolt"), ofBare);
    EXPECT_NEAR(*report.results.value("scans.16.wire", "zolt"), 78.125, 1e-9);
}

TEST(Derived, AFurtherCardCostsAFifteenthOfWhatFifteenCost) {
    // 4000 us for sixteen and 250 us for one in the first round.
    EXPECT_NEAR(sampleReport().results.rounds("card.cost", "zolt").at(0), 250, 1e-9);
}

TEST(Derived, TheBusyWaitIsWhatTheBareLoopTakesForAsManyExchanges) {
    const Report report = sampleReport();
    EXPECT_NEAR(*report.results.value("rest.sixteen.default.busywait", "zolt"), 20, 1e-9);
    EXPECT_NEAR(*report.results.value("rest.sixteen.default.above", "zolt"), 4, 1e-9);
}

TEST(Derived, WhatWasNotMeasuredHasNoShare) {
    Report report;
    report.contestants = {{"zolt", Role::kDaemon, ""}};
    report.results.add("scans.1", "zolt", 4000);
    addDerived(report);
    EXPECT_TRUE(report.results.rounds("scans.1.bare", "zolt").empty());
    EXPECT_EQ(report.results.rounds("scans.1.wire", "zolt").size(), 1U);
}

}  // namespace
}  // namespace bench
