#pragma once

#include <atomic>
#include <functional>
#include <mutex>
#include <utility>
#include <vector>

#include "tests/support/wait.h"
#include "thread/Thread.h"

/// A point in a cycle at which the kernel stops until the test lets it go on.
class Hold {
  public:
    /// The cycle calls this.
    void stopHere() {
        reached_ = true;
        support::waitUntil([this] { return released_.load(); });
    }
    bool isReached() const {
        return support::waitUntil([this] { return reached_.load(); });
    }
    void release() { released_ = true; }

  private:
    std::atomic<bool> reached_{false};
    std::atomic<bool> released_{false};
};

/// A CThread whose cycles a test gives and counts.
class Worker : public CThread {
  public:
    using Cycle = std::function<bool()>;
    using EventCycle = std::function<bool(void*)>;

    explicit Worker(
        Cycle cycle = [] { return true; }, EventCycle eventCycle = [](void*) { return true; })
        : cycle_(std::move(cycle)), eventCycle_(std::move(eventCycle)) {}
    ~Worker() { Stop(); }
    Worker(const Worker&) = delete;
    Worker& operator=(const Worker&) = delete;

    using CThread::running;
    using CThread::setStackSize;

    bool OnTask() override {
        ++cycles_;
        return cycle_();
    }
    bool OnTask(void* event) override {
        {
            const std::lock_guard guard(handledMutex_);
            handled_.push_back(event);
        }
        return eventCycle_(event);
    }

    bool wake() { return Event(static_cast<void*>(nullptr)); }

    /// Plain cycles begun so far.
    int cycles() const { return cycles_; }
    bool reachesCycle(int number) const {
        return support::waitUntil([&] { return cycles_ >= number; });
    }
    bool reachesState(KernelState state) {
        return support::waitUntil([&] { return ThreadState() == state; });
    }
    /// The events begun so far, in order.
    std::vector<void*> handled() {
        const std::lock_guard guard(handledMutex_);
        return handled_;
    }
    bool handles(std::size_t count) {
        return support::waitUntil([&] { return handled().size() >= count; });
    }

  private:
    Cycle cycle_;
    EventCycle eventCycle_;
    std::atomic<int> cycles_{0};
    std::mutex handledMutex_;
    std::vector<void*> handled_;
};
