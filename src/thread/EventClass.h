#pragma once

#include <pthread.h>

#include "thread/annotations.h"
#include "thread/condition_mutex.h"

/// A wake-up for one waiting thread. Wait() and Reset() bracket the waiter's work: between
/// them the waiter holds the event, so a Set() from another thread blocks until the work is
/// done. The event keeps a Set() that comes before the Wait(), and only a Set() ends a
/// Wait().
class CEventClass {
  public:
    CEventClass();
    /// A bracket may still be open: a kernel that ends in its cycle leaves one.
    /// REQUIRES: no thread is inside a call.
    ~CEventClass();
    CEventClass(const CEventClass&) = delete;
    CEventClass& operator=(const CEventClass&) = delete;

    /// Waits for an open bracket to close, then wakes one waiter.
    void Set() ZOLT_EXCLUDES(mutex_);
    /// The same, but returns false at once instead of blocking while a bracket is open.
    bool trySet() ZOLT_EXCLUDES(mutex_);
    /// Returns true after a Set(), with the bracket open.
    bool Wait() ZOLT_EXCLUDES(mutex_);
    /// Closes the bracket that Wait() opened.
    void Reset() ZOLT_EXCLUDES(mutex_);

    bool created() const { return created_; }

  private:
    /// Gives the mutex back, too.
    void latchAndSignal() ZOLT_RELEASES(mutex_);

    /// The thread in Wait() waits for this condition.
    pthread_cond_t condition_{};
    ConditionMutex mutex_;
    const bool created_;
    /// Threads in Set() wait for this condition while a bracket is open.
    pthread_cond_t bracketClosed_{};
    /// There was a Set() that no Wait() has consumed. Without this mark, the wake-up of a
    /// worker that is still on its way into Wait() would be lost.
    bool latched_ ZOLT_GUARDED_BY(mutex_) = false;
    /// A Wait() has returned and its Reset() has not come. This is a mark and not a mutex
    /// that stays locked: a kernel that ends in its cycle leaves its bracket open, and a
    /// mutex whose owner is gone can be neither unlocked nor destroyed.
    bool bracketOpen_ ZOLT_GUARDED_BY(mutex_) = false;
};
