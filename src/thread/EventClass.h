#pragma once

#include <pthread.h>

/// A wake-up for one waiting thread. Wait() and Reset() bracket the waiter's
/// work: between them it holds the event, so a Set() from another thread blocks
/// until the work is done. A Set() that comes before the Wait() is kept, and
/// only a Set() ends a Wait().
class CEventClass {
  public:
    CEventClass();
    /// No thread may be inside a call. A bracket may still be open (a kernel
    /// that ended in its cycle).
    ~CEventClass();
    CEventClass(const CEventClass&) = delete;
    CEventClass& operator=(const CEventClass&) = delete;

    /// Waits for an open bracket to close, then wakes one waiter.
    void Set();
    /// Like Set(), but returns false at once instead of blocking while a
    /// bracket is open.
    bool TrySet();
    /// Returns true after a Set(), with the bracket open.
    bool Wait();
    /// Closes the bracket that Wait() opened.
    void Reset();

    bool Created() const { return created_; }

  private:
    /// The caller holds mutex_, which is free afterwards.
    void latchAndSignal();

    /// For the thread in Wait().
    pthread_cond_t condition_{};
    pthread_mutex_t mutex_{};
    bool created_;
    /// For threads in Set() while a bracket is open.
    pthread_cond_t bracketClosed_{};
    /// Guarded by mutex_: a Set() that no Wait() has consumed. Without it the
    /// wake-up of a worker that is still on its way into Wait() would be lost.
    bool latched_ = false;
    /// Guarded by mutex_: a Wait() has returned and its Reset() has not come. A
    /// mark and not a mutex that stays locked: a kernel that ends in its cycle
    /// leaves its bracket open, and a mutex whose owner is gone can be neither
    /// unlocked nor destroyed.
    bool bracketOpen_ = false;
};
