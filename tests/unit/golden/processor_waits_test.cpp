#include "tests/support/process/processor_waits.h"

#include <gtest/gtest.h>
#include <unistd.h>

namespace {

using namespace std::chrono_literals;
using support::longestWait;
using support::ProcessorWaits;

TEST(LongestWait, IsTheGrowthOfOneThread) {
    EXPECT_EQ(longestWait({{1, 9s}, {2, 1s}}, {{1, 9s + 100ms}, {2, 1s + 300ms}}), 300ms);
}

TEST(LongestWait, OfANewThreadCountsFromItsStart) {
    EXPECT_EQ(longestWait({{1, 9s}}, {{1, 9s}, {2, 2s}}), 2s);
}

TEST(LongestWait, LeavesOutAThreadThatHasEnded) {
    EXPECT_EQ(longestWait({{1, 9s}, {2, 1s}}, {{2, 1s}}), 0s);
}

TEST(ProcessorWaits, KnowThisThread) {
    const ProcessorWaits waits = support::processorWaits();
    if (waits.empty()) GTEST_SKIP() << "this kernel does not count waits";
    EXPECT_EQ(waits.count(gettid()), 1U);
}

}  // namespace
