#include "bench/report/table.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/unit/bench/sample_report.h"

namespace bench {
namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;

std::string padded(std::string text, std::size_t width) {
    text.resize(width, ' ');
    return text;
}

TEST(Table, SaysWhereAndHowItWasMeasured) {
    const std::string text = table(sampleReport());
    EXPECT_THAT(text, HasSubstr("zolt, measured 2026-11-21 07:07:17: 2 rounds in 34 s\n"
                                "machine: 2 x Some Processor, Linux 6.1\n"
                                "places: as they come\n"
                                "noise, in processors: stolen by the host 0.010, at worst 0.020; "
                                "other load 0.30, at worst 0.40\n"
                                "link losses: 2 in round 1, commands, zolt, attempt discarded\n"
                                "link losses: 1 in round 2, rest, zolt\n"
                                "Of a discarded attempt only the losses count; it is in no "
                                "median or percentile.\n"
                                "slave: 1000 answers held back, late by p50 2 us, p99 30 us\n"));
}

TEST(Table, SaysThatNoLinkWasLost) {
    Report report = sampleReport();
    report.linkLosses.clear();
    EXPECT_THAT(table(report), HasSubstr("at worst 0.40\nlink losses: none\nslave: "));
}

TEST(Table, NamesTheCrowdOfABusyMachine) {
    Report report = sampleReport();
    EXPECT_THAT(table(report), Not(HasSubstr("a busy machine")));
    report.crowd = "one processor for everything";
    EXPECT_THAT(table(report), HasSubstr("a busy machine: one processor for everything\n"));
}

TEST(Table, SaysWhyItWasBrokenOff) {
    Report report = sampleReport();
    EXPECT_THAT(table(report), Not(HasSubstr("BROKEN OFF")));
    report.brokenOff = "zolt, rest: no answer";
    EXPECT_THAT(table(report),
                HasSubstr("BROKEN OFF, so what follows is incomplete: zolt, rest: no answer\n"));
}

TEST(Table, HasARowPerFigureAndAColumnPerContestant) {
    const std::string text = table(sampleReport());
    EXPECT_THAT(text, HasSubstr("\n" + padded("Full scans", 71) +
                                "        zolt        bare       tuned     shipped\n"));
    EXPECT_THAT(text, HasSubstr("\n" + padded("  1 polled card", 66) +
                                "1/s          4100        4500           -           -\n"));
}

TEST(Table, AddsUpWhatIsCountedOverTheWholeRun) {
    EXPECT_THAT(table(sampleReport()),
                HasSubstr(padded("  lost commands", 71) +
                          "           2           -           -           -\n"));
}

TEST(Table, LeavesOutWhatWasNotMeasured) {
    const std::string text = table(sampleReport());
    EXPECT_THAT(text, Not(HasSubstr("8 polled cards\n")));
    EXPECT_THAT(text, Not(HasSubstr("Start")));
}

TEST(Table, ListsTheSpeeds) {
    EXPECT_THAT(table(sampleReport()),
                HasSubstr("\nSpeed, 16 polled cards: zolt\n"
                          "  percent  full scans/s  change to line p50, us  processor, %\n"
                          "        1             1                     500          12.3\n"));
}

TEST(Table, EndsWithWhatShouldBeReached) {
    const std::string text = table(sampleReport());
    EXPECT_THAT(text, HasSubstr("\nWhat it should reach: zolt\n"));
    EXPECT_THAT(text, HasSubstr(padded("  lost commands", 66) + padded("at most 0", 17) +
                                "           2  NOT MET\n"));
    EXPECT_THAT(text, EndsWith("\nAllocations per cycle with nothing to do: 0; the tests "
                               "allocations.IdleCycle* show it.\n"));
}

}  // namespace
}  // namespace bench
