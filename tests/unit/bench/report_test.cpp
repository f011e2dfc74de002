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
    // In the first round sixteen cards take 4000 us and one card takes 250 us.
    EXPECT_NEAR(sampleReport().results.rounds("card.cost", "zolt").at(0), 250, 1e-9);
}

TEST(Derived, TheBusyWaitIsThatOfTheBareLoopForAsManyExchanges) {
    const Report report = sampleReport();
    const auto wait = report.results.rounds("rest.sixteen.default.busywait", "zolt");
    ASSERT_EQ(wait.size(), 2U);
    EXPECT_NEAR(wait[0], 30, 1e-9);
    EXPECT_NEAR(wait[1], 40, 1e-9);
}

TEST(Derived, TheRestIsAboveTheBusyWait) {
    const Report report = sampleReport();
    const auto above = report.results.rounds("rest.sixteen.default.above", "zolt");
    ASSERT_EQ(above.size(), 2U);
    EXPECT_NEAR(above[0], 2, 1e-9);
    EXPECT_NEAR(above[1], 6, 1e-9);
}

TEST(Derived, AChangeTakesSoMuchMoreThanAnExchangeOfTheBareLoop) {
    // An exchange takes 250 us and 200 us.
    const std::vector<double> beyond{50, 120};
    EXPECT_EQ(sampleReport().results.rounds("change.1.beyond", "zolt"), beyond);
}

TEST(Derived, ARoundThatWasBrokenOffHasNoShare) {
    Report report;
    report.contestants = {{"zolt", Role::kDaemon, ""}, {"bare", Role::kBareLoop, ""}};
    for (const double scans : {300.0, 310.0}) report.results.add("scans.16", "zolt", scans);
    report.results.add("scans.16", "bare", 400);
    addDerived(report);
    EXPECT_EQ(report.results.rounds("scans.16.bare", "zolt"), std::vector<double>{75});
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
