#include <gtest/gtest.h>

#include <deque>
#include <functional>
#include <utility>

#include "tests/unit/thread/background_call.h"
#include "tests/unit/thread/worker.h"

namespace {

class TestTask final : public CTask {
  public:
    explicit TestTask(std::function<bool()> body = [] { return true; }) : body_(std::move(body)) {}

    bool task() override {
        stateInBody_ = state();
        kernelId_ = static_cast<std::uint32_t>(pthread_self());
        return body_();
    }
    bool reaches(State wanted) {
        return support::waitUntil([&] { return state() == wanted; });
    }
    State stateInBody() const { return stateInBody_; }
    std::uint32_t kernelId() const { return kernelId_; }

  private:
    std::function<bool()> body_;
    std::atomic<State> stateInBody_{State::kNew};
    std::atomic<std::uint32_t> kernelId_{0};
};

/// Runs its tasks as the base does.
class TaskWorker : public Worker {
  public:
    explicit TaskWorker(Cycle cycle = [] { return true; })
        : Worker(std::move(cycle), [this](void* event) { return CThread::OnTask(event); }) {}
    ~TaskWorker() { Stop(); }
    TaskWorker(const TaskWorker&) = delete;
    TaskWorker& operator=(const TaskWorker&) = delete;
};

TEST(ThreadTasks, ATaskRunsOnTheKernelAndIsCompleted) {
    TestTask task;
    TaskWorker worker;
    worker.PingThread(0);
    EXPECT_EQ(task.state(), CTask::State::kNew);
    EXPECT_TRUE(worker.Event(&task));
    EXPECT_TRUE(task.reaches(CTask::State::kCompleted));
    EXPECT_EQ(task.stateInBody(), CTask::State::kRunning);
    EXPECT_EQ(task.threadId(), task.kernelId());
    EXPECT_NE(task.kernelId(), static_cast<std::uint32_t>(pthread_self()));
    EXPECT_EQ(worker.cycles(), 0);
}

TEST(ThreadTasks, ATaskPostedDuringACycleIsQueued) {
    Hold hold;
    TestTask task;
    TaskWorker worker([&] {
        hold.stopHere();
        return true;
    });
    worker.wake();
    ASSERT_TRUE(hold.isReached());
    BackgroundCall post([&] { EXPECT_TRUE(worker.Event(&task)); });
    EXPECT_TRUE(task.reaches(CTask::State::kQueued));
    EXPECT_EQ(worker.GetEventsPending(), 1U);
    hold.release();
    EXPECT_TRUE(task.reaches(CTask::State::kCompleted));
}

TEST(ThreadTasks, ATaskThatIsNotStoredIsNotMarked) {
    int event = 0;
    TestTask task;
    Worker worker;
    while (worker.Push(&event)) {
    }
    EXPECT_FALSE(worker.Event(&task));
    EXPECT_EQ(task.state(), CTask::State::kNew);
}

TEST(ThreadTasks, AnIntervalDrivenThreadRefusesTasks) {
    TestTask task;
    TaskWorker worker;
    worker.SetThreadType(kIntervalDriven, 1);
    EXPECT_FALSE(worker.Event(&task));
    EXPECT_EQ(task.state(), CTask::State::kNew);
    EXPECT_EQ(worker.errorFlags(), thread_error::kIllegalEvent);
}

TEST(ThreadTasks, ATaskThatGivesFalseIsCompletedAndEndsTheKernel) {
    TestTask task([] { return false; });
    TaskWorker worker;
    worker.Event(&task);
    EXPECT_TRUE(task.reaches(CTask::State::kCompleted));
    EXPECT_TRUE(support::waitUntil([&] { return !worker.running(); }));
    EXPECT_TRUE(worker.reachesState(KernelState::kDown));
}

TEST(ThreadTasks, TasksPostedWhileOthersRunAreAllCompleted) {
    constexpr std::size_t kTasks = 3000;
    constexpr std::size_t kRoom = 90;
    std::deque<TestTask> tasks;
    TaskWorker worker;
    for (std::size_t i = 0; i < kTasks; ++i) {
        tasks.emplace_back();
        ASSERT_TRUE(support::waitUntil([&] { return worker.GetEventsPending() < kRoom; }));
        ASSERT_TRUE(worker.Event(&tasks.back()));
    }
    for (TestTask& task : tasks) {
        ASSERT_TRUE(task.reaches(CTask::State::kCompleted));
    }
    worker.Stop();
}

}  // namespace
