#pragma once

#include <pthread.h>

#include <atomic>

/// A wake-up for one waiting thread. Wait() and Reset() bracket the waiter's
/// work: between them it holds the event's mutex, so a Set() from another
/// thread blocks until the work is done. A Set() that comes before the Wait()
/// is kept, and only a Set() ends a Wait().
class CEventClass {
  public:
    CEventClass();
    /// No thread may be inside a call. A bracket may still be open (a kernel
    /// that ended in its cycle).
    ~CEventClass();
    CEventClass(const CEventClass&) = delete;
    CEventClass& operator=(const CEventClass&) = delete;

    /// Locks and unlocks the event's mutex, then wakes one waiter.
    void Set();
    /// Like Set(), but returns false at once instead of blocking while a
    /// bracket is open.
    bool TrySet();
    /// Returns true after a Set(), with the event's mutex held.
    bool Wait();
    /// Releases the mutex that Wait() left held; by the thread that waited.
    void Reset();

    bool Created() const { return created_; }
    /// A Wait() has returned and its Reset() has not come.
    bool BracketOpen() const { return bracketOpen_; }

  private:
    void latchAndSignal();

    pthread_cond_t condition_{};
    pthread_mutex_t mutex_{};
    bool created_;
    /// Guarded by mutex_: a Set() that no Wait() has consumed. Without it the
    /// wake-up of a worker that is still on its way into Wait() would be lost.
    bool latched_ = false;
    std::atomic<bool> bracketOpen_{false};
};
