#include <gtest/gtest.h>

#include <array>
#include <thread>

#include "tests/support/sanitizer.h"
#include "tests/unit/thread/background_call.h"
#include "tests/unit/thread/system_calls.h"
#include "tests/unit/thread/worker.h"

namespace {

/// Two threads that want all the processor time there is.
class Load {
  public:
    Load() {
        for (std::jthread& thread : threads_) {
            thread = std::jthread([](const std::stop_token& stop) {
                while (!stop.stop_requested()) {
                }
            });
        }
    }

  private:
    std::array<std::jthread, 2> threads_;
};

void expectDown(Worker& worker) {
    EXPECT_EQ(worker.ThreadState(), KernelState::kDown);
    EXPECT_FALSE(worker.running());
    EXPECT_FALSE(worker.PingThread(1000));
}

bool kernelEnds(Worker& worker) {
    return support::waitUntil([&] { return worker.cycles() > 0 && !worker.running(); });
}

TEST(ThreadStop, BeforeTheKernelsFirstInstruction) {
    system_calls::HeldKernels held;
    Worker worker;
    BackgroundCall stop([&] { worker.Stop(); });
    EXPECT_TRUE(stop.staysBlocked());
    held.release();
    ASSERT_TRUE(stop.returns());
    expectDown(worker);
    EXPECT_EQ(worker.cycles(), 0);
}

TEST(ThreadStop, WhileItWaitsForAnEvent) {
    Worker worker;
    worker.PingThread(0);
    worker.Stop();
    expectDown(worker);
    EXPECT_EQ(worker.cycles(), 0);
    EXPECT_EQ(worker.errorFlags(), 0U);
}

TEST(ThreadStop, WhileItIsIntervalDriven) {
    Worker worker;
    worker.SetThreadType(kIntervalDriven, 1);
    ASSERT_TRUE(worker.reachesCycle(1));
    worker.Stop();
    expectDown(worker);
    // Its wake-up was an event that such a thread refuses.
    EXPECT_EQ(worker.errorFlags(), thread_error::kIllegalEvent);
    const int cycles = worker.cycles();
    EXPECT_FALSE(worker.wake());
    EXPECT_EQ(worker.cycles(), cycles);
}

TEST(ThreadStop, DuringAnEventDrivenCycle) {
    Hold hold;
    Worker worker([&] {
        hold.stopHere();
        return true;
    });
    worker.wake();
    ASSERT_TRUE(hold.isReached());
    BackgroundCall stop([&] { worker.Stop(); });
    EXPECT_TRUE(stop.staysBlocked());
    hold.release();
    ASSERT_TRUE(stop.returns());
    expectDown(worker);
    EXPECT_EQ(worker.cycles(), 1);
}

TEST(ThreadStop, DuringAnIntervalDrivenCycle) {
    Hold hold;
    Worker worker([&] {
        hold.stopHere();
        return true;
    });
    worker.SetThreadType(kIntervalDriven, 1);
    ASSERT_TRUE(hold.isReached());
    BackgroundCall stop([&] { worker.Stop(); });
    EXPECT_TRUE(stop.staysBlocked());
    hold.release();
    ASSERT_TRUE(stop.returns());
    expectDown(worker);
    EXPECT_EQ(worker.cycles(), 1);
}

TEST(ThreadStop, DuringACycleThatWatchesForIt) {
    Worker worker([&] { return !support::waitUntil([&] { return !worker.running(); }); });
    worker.SetThreadType(kIntervalDriven, 1);
    ASSERT_TRUE(worker.reachesCycle(1));
    worker.Stop();
    expectDown(worker);
}

TEST(ThreadStop, AfterTheKernelHasEndedByItself) {
    for (const ThreadType_t type : {kEventDriven, kIntervalDriven}) {
        Worker worker([] { return false; });
        worker.SetThreadType(type, 1);
        if (type == kEventDriven) {
            worker.wake();
        }
        ASSERT_TRUE(kernelEnds(worker));
        worker.Stop();
        expectDown(worker);
    }
}

TEST(ThreadStop, Twice) {
    for (const ThreadType_t type : {kEventDriven, kIntervalDriven}) {
        Worker worker;
        worker.SetThreadType(type, 1);
        worker.Stop();
        worker.Stop();
        expectDown(worker);
    }
}

TEST(ThreadStop, EventsThatAreStillStoredAreNotHandled) {
    int event = 0;
    Worker worker;
    worker.Push(&event);
    worker.Stop();
    expectDown(worker);
    EXPECT_EQ(worker.GetEventsPending(), 1U);
    EXPECT_TRUE(worker.handled().empty());
}

TEST(ThreadStop, AnIntervalDrivenThreadCanBeStartedAgain) {
    Worker worker;
    worker.SetThreadType(kIntervalDriven, 1);
    for (int round = 0; round < 3; ++round) {
        const int before = worker.cycles();
        EXPECT_TRUE(worker.reachesCycle(before + 5));
        worker.Stop();
        expectDown(worker);
        EXPECT_TRUE(worker.Start());
    }
    EXPECT_TRUE(worker.reachesCycle(worker.cycles() + 5));
}

TEST(ThreadStop, AnEventDrivenThreadCanBeStartedAgain) {
    Worker worker;
    for (int round = 0; round < 3; ++round) {
        worker.Stop();
        expectDown(worker);
        EXPECT_TRUE(worker.Start());
        const int before = worker.cycles();
        EXPECT_TRUE(worker.Event(static_cast<void*>(nullptr)));
        EXPECT_TRUE(worker.reachesCycle(before + 1));
    }
}

TEST(ThreadStop, TheBaseAloneEndsByItsDestructor) {
    for (int round = 0; round < 100; ++round) {
        CThread thread;
    }
}

// A wake-up that is lost on the way shows as a worker that never runs or a
// stop that never returns.

// More rounds meet more orders of the steps; the thread sanitizer also reports a race in an
// order that did no harm, so it has the long run.
constexpr int kManyWorkers = support::kThreadSanitizer ? 1000 : 200;

TEST(ThreadStop, ManyIntervalDrivenWorkersUnderLoad) {
    Load load;
    for (int round = 0; round < kManyWorkers; ++round) {
        Worker worker;
        worker.SetThreadType(kIntervalDriven, 1);
        if (round % 2 == 0) {
            ASSERT_TRUE(worker.reachesCycle(1)) << "round " << round;
        }
        worker.Stop();
        ASSERT_EQ(worker.ThreadState(), KernelState::kDown);
    }
}

TEST(ThreadStop, ManyEventDrivenWorkersUnderLoad) {
    Load load;
    for (int round = 0; round < kManyWorkers; ++round) {
        Worker worker;
        if (round % 2 == 0) {
            ASSERT_TRUE(worker.wake());
            ASSERT_TRUE(worker.reachesCycle(1)) << "round " << round;
        }
        worker.Stop();
        ASSERT_EQ(worker.ThreadState(), KernelState::kDown);
    }
}

}  // namespace
