#include "thread/Thread.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <unistd.h>

#include <cstring>
#include <memory>
#include <type_traits>

#include "tests/unit/thread/background_call.h"
#include "tests/unit/thread/system_calls.h"
#include "tests/unit/thread/worker.h"

namespace {

static_assert(!std::has_virtual_destructor_v<CThread>);

/// A worker whose construction takes as long as a kernel needs to start.
class SlowlyBuiltWorker : public CThread {
  public:
    SlowlyBuiltWorker() {
        PingThread(0);
        cyclesBeforeBuilt_ = cycles_;
        SetThreadType(kIntervalDriven, 1);
    }
    ~SlowlyBuiltWorker() { Stop(); }
    SlowlyBuiltWorker(const SlowlyBuiltWorker&) = delete;
    SlowlyBuiltWorker& operator=(const SlowlyBuiltWorker&) = delete;

    bool OnTask() override {
        ++cycles_;
        return true;
    }
    int cycles() const { return cycles_; }
    int cyclesBeforeBuilt() const { return cyclesBeforeBuilt_; }

  private:
    std::atomic<int> cycles_{0};
    int cyclesBeforeBuilt_ = -1;
};

/// Runs the base's plain cycle.
class SilentWorker : public Worker {
  public:
    SilentWorker() : Worker([this] { return CThread::OnTask(); }) {}
    ~SilentWorker() { Stop(); }
    SilentWorker(const SilentWorker&) = delete;
    SilentWorker& operator=(const SilentWorker&) = delete;
};

TEST(Thread, ANewThreadWaitsForAnEventAndRunsNothing) {
    Worker worker;
    EXPECT_TRUE(worker.PingThread(0));
    EXPECT_TRUE(worker.reachesState(KernelState::kWaiting));
    EXPECT_TRUE(worker.running());
    EXPECT_EQ(worker.GetEventsPending(), 0U);
    EXPECT_EQ(worker.errorFlags(), 0U);
    EXPECT_EQ(worker.cycles(), 0);
}

TEST(Thread, NoCycleMeetsAnUnfinishedObject) {
    SlowlyBuiltWorker worker;
    EXPECT_EQ(worker.cyclesBeforeBuilt(), 0);
    EXPECT_TRUE(support::waitUntil([&] { return worker.cycles() > 10; }));
}

TEST(Thread, ACycleIsBusyAndThenWaiting) {
    std::atomic<KernelState> stateInCycle{KernelState::kDown};
    Worker worker([&] {
        stateInCycle = worker.ThreadState();
        return true;
    });
    worker.wake();
    EXPECT_TRUE(worker.reachesCycle(1));
    EXPECT_TRUE(worker.reachesState(KernelState::kWaiting));
    EXPECT_EQ(stateInCycle, KernelState::kBusy);
}

TEST(Thread, AFalseCycleEndsTheKernel) {
    for (const ThreadType_t type : {kEventDriven, kIntervalDriven}) {
        Worker worker([] { return false; });
        worker.SetThreadType(type, 1);
        if (type == kEventDriven) {
            worker.wake();
        }
        EXPECT_TRUE(support::waitUntil([&] { return worker.cycles() == 1 && !worker.running(); }));
        EXPECT_TRUE(worker.reachesState(KernelState::kDown));
        EXPECT_EQ(worker.cycles(), 1);
    }
}

TEST(Thread, ACycleOfAThreadThatIsToEndRunsNothing) {
    Worker worker;
    worker.Stop();
    EXPECT_FALSE(worker.KernelProcess());
    EXPECT_EQ(worker.ThreadState(), KernelState::kShuttingDown);
    EXPECT_EQ(worker.cycles(), 0);
}

TEST(Thread, TheBaseCycleSaysThatItIsAlive) {
    testing::internal::CaptureStdout();
    {
        SilentWorker worker;
        worker.wake();
        EXPECT_TRUE(worker.reachesCycle(1));
        EXPECT_TRUE(worker.reachesState(KernelState::kWaiting));
    }
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "\nthread is alive\n");
}

TEST(Thread, PriorityIsLeftAsItIs) {
    std::atomic<int> niceBefore{-100};
    std::atomic<int> niceAfter{-100};
    Worker worker([&] {
        (worker.cycles() == 1 ? niceBefore : niceAfter) =
            getpriority(PRIO_PROCESS, static_cast<id_t>(gettid()));
        return true;
    });
    worker.wake();
    ASSERT_TRUE(worker.reachesCycle(1));
    const int ownNice = getpriority(PRIO_PROCESS, 0);
    worker.SetPriority(15);
    EXPECT_EQ(getpriority(PRIO_PROCESS, 0), ownNice);
    worker.wake();
    ASSERT_TRUE(worker.reachesCycle(2));
    worker.Stop();
    EXPECT_EQ(niceAfter, niceBefore);
}

TEST(Thread, APingAddsUpIdleTimesUntilItGivesUp) {
    system_calls::HeldKernels held;
    Worker worker;
    {
        // The idle time is 100 steps of 100 nanoseconds at first.
        system_calls::PauseCount pauses(10'000);
        EXPECT_FALSE(worker.PingThread(1000));
        EXPECT_EQ(pauses.value(), 11);
    }
    worker.SetIdle(400);
    {
        system_calls::PauseCount pauses(40'000);
        EXPECT_FALSE(worker.PingThread(1000));
        EXPECT_EQ(pauses.value(), 3);
    }
    held.release();
    EXPECT_TRUE(worker.PingThread(0));
}

TEST(Thread, APingWithoutTimeOutWaitsForTheKernel) {
    system_calls::HeldKernels held;
    Worker worker;
    EXPECT_FALSE(worker.running());
    EXPECT_EQ(worker.ThreadState(), KernelState::kDown);
    std::atomic<bool> answer{false};
    BackgroundCall ping([&] { answer = worker.PingThread(0); });
    BackgroundCall negativePing([&] { worker.PingThread(-5); });
    EXPECT_TRUE(ping.staysBlocked());
    EXPECT_TRUE(negativePing.staysBlocked());
    held.release();
    EXPECT_TRUE(ping.returns());
    EXPECT_TRUE(negativePing.returns());
    EXPECT_TRUE(answer);
}

TEST(Thread, APingOfARunningThreadDoesNotPause) {
    Worker worker;
    worker.PingThread(0);
    worker.SetIdle(777);
    system_calls::PauseCount pauses(77'700);
    EXPECT_TRUE(worker.PingThread(1));
    EXPECT_EQ(pauses.value(), 0);
}

template <typename MemberFunction>
std::ptrdiff_t tableOffset(MemberFunction function) {
    std::ptrdiff_t offset = 0;
    static_assert(sizeof function >= sizeof offset);
    std::memcpy(&offset, &function, sizeof offset);
    return offset;
}

TEST(Thread, TheEventOperationIsTheFirstInTheTable) {
    using Plain = bool (CThread::*)();
    using WithEvent = bool (CThread::*)(void*);
    EXPECT_EQ(tableOffset(static_cast<Plain>(&CThread::OnTask)) -
                  tableOffset(static_cast<WithEvent>(&CThread::OnTask)),
              static_cast<std::ptrdiff_t>(sizeof(void*)));
}

}  // namespace
