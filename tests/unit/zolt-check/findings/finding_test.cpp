#include "apps/zolt-check/findings/finding.h"

#include <gtest/gtest.h>

namespace {

using namespace zolt_check;

TEST(FindingList, IsSortedByPlaces) {
    Findings findings;
    findings.warning({2, 7}, "third");
    findings.error({2, 1}, "second");
    findings.warning({1, 9}, "first");
    findings.warning({10, 1}, "fourth");
    std::string texts;
    for (const Finding& finding : findings.sorted()) {
        texts += finding.text + (finding.severity == Severity::kError ? " error; " : "; ");
    }
    EXPECT_EQ(texts, "first; second error; third; fourth; ");
}

TEST(FindingList, KeepsTheOrderOfFindingsInOnePlace) {
    Findings findings;
    findings.warning({1, 1}, "first");
    findings.error({1, 1}, "second");
    findings.warning({1, 1}, "third");
    std::string texts;
    for (const Finding& finding : findings.sorted()) {
        texts += finding.text + "; ";
    }
    EXPECT_EQ(texts, "first; second; third; ");
}

}  // namespace
