#pragma once

#include <atomic>
#include <cstdint>

#include "thread/MutexClass.h"
#include "thread/annotations.h"

/// A unit of work for an event-driven CThread.
/// REQUIRES: the poster owns the task and keeps it alive until its state is kCompleted.
class CTask {
  public:
    enum class State : std::int32_t {
        kNew = 0,        ///< not posted yet
        kQueued = 1,     ///< posted; the kernel has not begun it
        kRunning = 2,    ///< the kernel runs it
        kCompleted = 3,  ///< the kernel has run it
    };

    /// Does the work; runs on the thread's kernel. False ends that kernel.
    virtual bool task() = 0;

    State state() ZOLT_EXCLUDES(lock_);
    void setState(State state) ZOLT_EXCLUDES(lock_);
    /// The identifier of the thread that the task was posted to.
    std::uint32_t threadId() const { return threadId_; }
    void setThreadId(std::uint32_t threadId) { threadId_ = threadId; }

  protected:
    ~CTask() = default;

  private:
    CMutexClass lock_;
    State state_ ZOLT_GUARDED_BY(lock_) = State::kNew;
    std::atomic<std::uint32_t> threadId_{0};
};
