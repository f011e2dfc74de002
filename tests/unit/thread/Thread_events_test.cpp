#include <gtest/gtest.h>

#include <array>

#include "tests/unit/thread/background_call.h"
#include "tests/unit/thread/worker.h"

namespace {

constexpr std::size_t kMostEvents = 99;

class ThreadEvents : public testing::Test {
  protected:
    void* event(std::size_t index) { return &events_.at(index); }

  private:
    std::array<int, kMostEvents + 1> events_{};
};

TEST_F(ThreadEvents, ANullPushSucceedsAndStoresNothing) {
    Worker worker;
    EXPECT_TRUE(worker.Push(nullptr));
    EXPECT_EQ(worker.GetEventsPending(), 0U);
    EXPECT_TRUE(worker.Empty());
}

TEST_F(ThreadEvents, NinetyNineEventsFit) {
    Worker worker;
    for (std::size_t i = 0; i < kMostEvents; ++i) {
        EXPECT_TRUE(worker.Push(event(i)));
    }
    EXPECT_FALSE(worker.Push(event(kMostEvents)));
    EXPECT_FALSE(worker.Event(event(kMostEvents)));
    EXPECT_TRUE(worker.Push(nullptr));
    EXPECT_EQ(worker.GetEventsPending(), kMostEvents);
    EXPECT_EQ(worker.errorFlags(), 0U);
    worker.wake();
    EXPECT_TRUE(worker.handles(kMostEvents));
    worker.Stop();
    EXPECT_EQ(worker.handled().size(), kMostEvents);
    EXPECT_EQ(worker.handled().front(), event(kMostEvents - 1));
}

TEST_F(ThreadEvents, APopTakesOneEventOff) {
    Worker worker;
    worker.Push(event(0));
    worker.Push(event(1));
    EXPECT_TRUE(worker.Pop());
    EXPECT_EQ(worker.GetEventsPending(), 1U);
    EXPECT_FALSE(worker.Empty());
    EXPECT_TRUE(worker.Pop());
    EXPECT_TRUE(worker.Empty());
    EXPECT_TRUE(worker.Pop());
    EXPECT_TRUE(worker.Empty());
}

TEST_F(ThreadEvents, ANullEventRunsOnePlainCycle) {
    Worker worker;
    EXPECT_TRUE(worker.wake());
    EXPECT_TRUE(worker.reachesCycle(1));
    EXPECT_TRUE(worker.wake());
    EXPECT_TRUE(worker.reachesCycle(2));
    worker.Stop();
    EXPECT_EQ(worker.cycles(), 2);
    EXPECT_TRUE(worker.handled().empty());
}

TEST_F(ThreadEvents, EventsAreHandledNewestFirstInOneCycleOfTheirOwn) {
    Worker worker;
    worker.Push(event(0));
    worker.Push(event(1));
    EXPECT_TRUE(worker.Event(event(2)));
    EXPECT_TRUE(worker.handles(3));
    EXPECT_TRUE(worker.reachesState(KernelState::kWaiting));
    worker.Stop();
    EXPECT_EQ(worker.handled(), (std::vector<void*>{event(2), event(1), event(0)}));
    EXPECT_EQ(worker.cycles(), 0);
}

TEST_F(ThreadEvents, AnEventPostedDuringACycleIsHandledAfterIt) {
    Hold hold;
    Worker worker([&] {
        hold.stopHere();
        return true;
    });
    worker.wake();
    ASSERT_TRUE(hold.isReached());
    BackgroundCall post([&] { EXPECT_TRUE(worker.Event(event(0))); });
    EXPECT_TRUE(post.staysBlocked());
    // The poster waits without keeping the object locked.
    EXPECT_EQ(worker.GetEventsPending(), 1U);
    EXPECT_EQ(worker.ThreadState(), KernelState::kBusy);
    EXPECT_TRUE(worker.handled().empty());
    hold.release();
    EXPECT_TRUE(post.returns());
    EXPECT_TRUE(worker.handles(1));
    EXPECT_EQ(worker.handled(), std::vector<void*>{event(0)});
}

TEST_F(ThreadEvents, AWakeUpPostedDuringACycleRunsAnother) {
    Hold hold;
    Worker worker([&] {
        if (worker.cycles() == 1) {
            hold.stopHere();
        }
        return true;
    });
    worker.wake();
    ASSERT_TRUE(hold.isReached());
    BackgroundCall post([&] { worker.wake(); });
    hold.release();
    EXPECT_TRUE(post.returns());
    EXPECT_TRUE(worker.reachesCycle(2));
}

TEST_F(ThreadEvents, AnEventThatGivesFalseEndsTheKernelBeforeTheOthers) {
    Worker worker([] { return true; }, [](void*) { return false; });
    worker.Push(event(0));
    worker.Push(event(1));
    worker.Event(event(2));
    EXPECT_TRUE(
        support::waitUntil([&] { return worker.handled().size() == 1 && !worker.running(); }));
    EXPECT_TRUE(worker.reachesState(KernelState::kDown));
    EXPECT_EQ(worker.handled(), std::vector<void*>{event(2)});
    EXPECT_EQ(worker.GetEventsPending(), 2U);
}

TEST_F(ThreadEvents, AThreadWhoseKernelHasEndedKeepsItsEvents) {
    Worker worker([] { return false; });
    worker.wake();
    ASSERT_TRUE(support::waitUntil([&] { return worker.cycles() == 1 && !worker.running(); }));
    EXPECT_TRUE(worker.wake());
    EXPECT_TRUE(worker.Event(event(0)));
    EXPECT_EQ(worker.GetEventsPending(), 1U);
    worker.SetThreadType(kIntervalDriven, 1);
    EXPECT_EQ(worker.cycles(), 1);
}

TEST_F(ThreadEvents, AnIntervalDrivenThreadRefusesEvents) {
    Hold hold;
    Worker worker([&] {
        hold.stopHere();
        return true;
    });
    worker.SetThreadType(kIntervalDriven, 1);
    ASSERT_TRUE(hold.isReached());
    EXPECT_EQ(worker.errorFlags(), 0U);
    EXPECT_FALSE(worker.Event(event(0)));
    EXPECT_EQ(worker.errorFlags(), thread_error::kIllegalEvent);
    EXPECT_EQ(worker.ThreadState(), KernelState::kFault);
    EXPECT_FALSE(worker.wake());
    EXPECT_EQ(worker.GetEventsPending(), 0U);
    hold.release();
    // The refusal does not stop the thread.
    EXPECT_TRUE(worker.reachesCycle(10));
    EXPECT_TRUE(worker.handled().empty());
    EXPECT_EQ(worker.errorFlags(), thread_error::kIllegalEvent);
}

TEST_F(ThreadEvents, EveryWakeUpOfALongRowIsSeen) {
    Worker worker;
    std::size_t posted = 0;
    while (posted < 2000) {
        ASSERT_TRUE(worker.Event(event(posted % kMostEvents)));
        ++posted;
        if (posted % kMostEvents == 0) {
            ASSERT_TRUE(worker.handles(posted));
        }
    }
    EXPECT_TRUE(worker.handles(posted));
}

}  // namespace
