#include "bench/report/targets.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "tests/unit/bench/sample_report.h"

namespace bench {
namespace {

Verdict verdictOn(const Report& report, const std::string& text) {
    for (const Verdict& verdict : verdicts(report)) {
        if (verdict.text.starts_with(text)) return verdict;
    }
    return {};
}

TEST(Verdicts, AreOnlyOnWhatWasMeasured) {
    const auto all = verdicts(sampleReport());
    EXPECT_EQ(all.size(), 6U);
    EXPECT_TRUE(verdicts(Report()).empty());
}

TEST(Verdicts, AreNotMadeOnABusyMachine) {
    Report report = sampleReport();
    report.crowd = "all processors, 5 busy processes beside";
    EXPECT_TRUE(verdicts(report).empty());
}

TEST(Verdicts, CompareWithTheBareLoop) {
    const Verdict verdict = verdictOn(sampleReport(), "full scans of 16 polled cards");
    EXPECT_EQ(verdict.daemon, "zolt");
    EXPECT_EQ(verdict.limit, "at least 0.980");
    EXPECT_EQ(verdict.value, "0.812");
    EXPECT_FALSE(verdict.met);
}

TEST(Verdicts, CompareWithTheTunedGateway) {
    const Verdict verdict = verdictOn(sampleReport(), "line in to last byte at the card");
    EXPECT_EQ(verdict.limit, "at most 1.25");
    EXPECT_EQ(verdict.value, "1.25");
    EXPECT_TRUE(verdict.met);
}

TEST(Verdicts, AddUpWhatIsLost) {
    const Verdict verdict = verdictOn(sampleReport(), "lost commands");
    EXPECT_EQ(verdict.limit, "at most 0");
    EXPECT_EQ(verdict.value, "2");
    EXPECT_FALSE(verdict.met);
}

TEST(Verdicts, NameTheUnit) {
    const Verdict verdict = verdictOn(sampleReport(), "processor above the busy wait");
    EXPECT_EQ(verdict.limit, "within 5.00 %");
    EXPECT_EQ(verdict.value, "4.00 %");
    EXPECT_TRUE(verdict.met);
}

TEST(Verdicts, RefuseFarLessThanTheBusyWait) {
    Report report;
    report.contestants = {{"zolt", Role::kDaemon, ""}};
    report.results.add("rest.sixteen.default.above", "zolt", -5.5);
    EXPECT_FALSE(verdictOn(report, "processor above the busy wait").met);
}

}  // namespace
}  // namespace bench
