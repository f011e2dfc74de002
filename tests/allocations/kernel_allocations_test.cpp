#include <gtest/gtest.h>

#include <atomic>

#include "tests/support/allocation_count.h"
#include "tests/support/wait.h"
#include "thread/Thread.h"
#include "thread/loop_pause.h"

namespace {

/// Records at each cycle what its kernel's thread has taken from the heap so far.
class CountingWorker final : public CThread {
  public:
    CountingWorker() { SetThreadType(kIntervalDriven, 1); }
    ~CountingWorker() { Stop(); }

    using CThread::OnTask;
    bool OnTask() override {
        pause_.pause(1);
        const std::size_t taken = support::allocations().count;
        if (cycles_ == 0) atFirst_ = taken;
        sinceFirst_ = taken - atFirst_;
        ++cycles_;
        return true;
    }

    int cycles() const { return cycles_; }
    std::size_t takenSinceTheFirst() const { return sinceFirst_; }

  private:
    LoopPause pause_{std::chrono::microseconds(10)};
    std::size_t atFirst_ = 0;
    std::atomic<std::size_t> sinceFirst_{0};
    std::atomic<int> cycles_{0};
};

TEST(KernelAllocations, AWorkersThreadTakesNothingForItsCycles) {
    CountingWorker worker;
    ASSERT_TRUE(support::waitUntil([&] { return worker.cycles() >= 1000; }));
    EXPECT_EQ(worker.takenSinceTheFirst(), 0U);
}

}  // namespace
