// The events of a CThread: how they are posted, stored and taken.
#include "common/pauses.h"
#include "thread/Thread.h"

namespace {

/// The pause between two tries to wake a kernel that is in a cycle, in steps of 100
/// nanoseconds: 10 microseconds.
constexpr unsigned kWakeRetryPause = 100;

}  // namespace

std::uint32_t CThread::GetEventsPending() {
    MutexGuard guard(lock_);
    return pending_;
}

bool CThread::takesEvents() {
    if (type_ == kEventDriven) {
        return true;
    }
    MutexGuard guard(lock_);
    fault(thread_error::kIllegalEvent);
    return false;
}

bool CThread::Event(void* event) {
    if (!takesEvents() || !Push(event)) {
        return false;
    }
    wakeKernel();
    return true;
}

bool CThread::Event(CTask* task) {
    if (!takesEvents()) {
        return false;
    }
    {
        // Storing and marking are one locked region: a kernel that is in a cycle could
        // otherwise take and complete the task before it is marked as queued.
        MutexGuard guard(lock_);
        task->setThreadId(threadId_);
        if (!store(task)) {
            return false;
        }
        task->setState(CTask::State::kQueued);
    }
    wakeKernel();
    return true;
}

bool CThread::Push(void* event) {
    if (event == nullptr) {
        return true;
    }
    MutexGuard guard(lock_);
    return store(event);
}

bool CThread::store(void* event) {
    if (pending_ + 1 >= capacity_) {
        return false;
    }
    queue_[pending_++] = event;
    return true;
}

bool CThread::Pop() {
    MutexGuard guard(lock_);
    if (pending_ > 0) {
        current_ = queue_[--pending_];
    }
    return true;
}

bool CThread::Empty() {
    MutexGuard guard(lock_);
    return pending_ == 0;
}

void* CThread::current() {
    MutexGuard guard(lock_);
    return current_;
}

void CThread::wakeKernel() {
    // An ended event-driven kernel has left the event's bracket open, so a
    // blocking Set() would never return.
    while (!event_.trySet()) {
        if (kernel_ == Kernel::kEnded) {
            return;
        }
        Sleep(kWakeRetryPause);
    }
}
