#include <gtest/gtest.h>

#include "tests/unit/thread/background_call.h"
#include "tests/unit/thread/system_calls.h"
#include "tests/unit/thread/worker.h"

namespace {

constexpr ThreadType_t kSpinning = 2;

bool pauses(long nanoseconds) {
    system_calls::PauseCount count(nanoseconds);
    return support::waitUntil([&] { return count.value() > 2; });
}

TEST(ThreadType, AnIntervalDrivenThreadRunsCycleAfterCycle) {
    Worker worker;
    worker.SetThreadType(kIntervalDriven, 1);
    EXPECT_TRUE(worker.reachesCycle(100));
}

TEST(ThreadType, AnIntervalDrivenThreadPausesForItsIdleTime) {
    Worker worker;
    worker.SetThreadType(kIntervalDriven, 1);
    EXPECT_TRUE(pauses(100));
    worker.SetIdle(123);
    EXPECT_TRUE(pauses(12'300));
}

TEST(ThreadType, AnIdleTimeOfASecondOrMoreIsNoPause) {
    Worker worker;
    worker.SetThreadType(kIntervalDriven, 10'000'000);
    // Each cycle would take a second if the thread paused.
    EXPECT_TRUE(worker.reachesCycle(1000));
    EXPECT_TRUE(pauses(1'000'000'000));
}

TEST(ThreadType, TheIdleTimeIsStoredWhenTheTypeStaysTheSame) {
    Worker worker;
    worker.SetThreadType(kIntervalDriven, 1);
    worker.SetThreadType(kIntervalDriven, 321);
    EXPECT_TRUE(pauses(32'100));
}

TEST(ThreadType, OtherTypesNeitherWaitNorPause) {
    Worker worker;
    system_calls::PauseCount count(77'700);
    worker.SetThreadType(kSpinning, 777);
    EXPECT_TRUE(worker.reachesCycle(1000));
    EXPECT_EQ(count.value(), 0);
}

TEST(ThreadType, AChangeWakesTheKernelAndWaitsForItsCycle) {
    Hold first;
    Hold second;
    Worker worker([&] {
        if (worker.cycles() == 1) {
            first.stopHere();
        } else if (worker.cycles() == 2) {
            second.stopHere();
        }
        return true;
    });
    worker.wake();
    ASSERT_TRUE(first.isReached());
    // Without a change the call wakes nothing, and so does not wait for the cycle.
    worker.SetThreadType(kEventDriven, 5);
    system_calls::PauseCount count(55'500);
    BackgroundCall change([&] { worker.SetThreadType(kIntervalDriven, 555); });
    EXPECT_TRUE(change.staysBlocked());
    EXPECT_EQ(worker.ThreadState(), KernelState::kBusy);
    first.release();
    EXPECT_TRUE(change.returns());
    // The pause follows the type at the end of the cycle.
    ASSERT_TRUE(second.isReached());
    EXPECT_EQ(count.value(), 1);
    second.release();
    EXPECT_TRUE(worker.reachesCycle(10));
}

TEST(ThreadType, TheFirstIntervalCycleStillHoldsTheEvent) {
    const int waitsBefore = system_calls::waitsBegun();
    Hold first;
    Hold second;
    Worker worker([&] {
        if (worker.cycles() == 1) {
            first.stopHere();
        } else if (worker.cycles() == 2) {
            second.stopHere();
        }
        return true;
    });
    ASSERT_TRUE(support::waitUntil([&] { return system_calls::waitsBegun() > waitsBefore; }));
    worker.SetThreadType(kIntervalDriven, 1);
    ASSERT_TRUE(first.isReached());
    BackgroundCall change([&] { worker.SetThreadType(kSpinning, 1); });
    EXPECT_TRUE(change.staysBlocked());
    first.release();
    EXPECT_TRUE(change.returns());
    ASSERT_TRUE(second.isReached());
    // The second cycle does not hold the event: this call would wait for ever if it did.
    worker.SetThreadType(kIntervalDriven, 1);
    second.release();
    EXPECT_TRUE(worker.reachesCycle(10));
}

TEST(ThreadType, AThreadThatBecomesEventDrivenWaitsAgainWithoutAPause) {
    Hold hold;
    Worker worker([&] {
        // The first cycle may still hold the event, so the second one stops.
        if (worker.cycles() == 2) {
            hold.stopHere();
        }
        return true;
    });
    worker.SetThreadType(kIntervalDriven, 1);
    ASSERT_TRUE(hold.isReached());
    worker.SetThreadType(kEventDriven, 666);
    system_calls::PauseCount count(66'600);
    hold.release();
    int event = 0;
    EXPECT_TRUE(worker.Event(&event));
    EXPECT_TRUE(worker.handles(1));
    EXPECT_EQ(count.value(), 0);
}

}  // namespace
