#pragma once

#include <pthread.h>

#include <atomic>

#include "thread/annotations.h"

/// A mutex that remembers its owner. It is re-entrant without a count, on purpose: a nested
/// Lock() by the owner does nothing, and the first Unlock() frees the mutex for good, so
/// keep locked regions flat. Any thread may call any operation.
class ZOLT_LOCK CMutexClass {
  public:
    CMutexClass();
    /// Locks and unlocks first, so that a holder finishes.
    ~CMutexClass();
    CMutexClass(const CMutexClass&) = delete;
    CMutexClass& operator=(const CMutexClass&) = delete;

    void Lock() ZOLT_ACQUIRES();
    /// Does nothing when the caller is not the owner.
    void Unlock() ZOLT_RELEASES();

    bool created() const { return created_; }
    bool heldByCaller() const { return owner_.load() == pthread_self(); }

  private:
    pthread_mutex_t mutex_{};
    /// The holder, 0 when the mutex is free. Threads read it without the mutex: only the
    /// holder can find itself here.
    std::atomic<pthread_t> owner_{0};
    const bool created_;
};

/// Holds a CMutexClass for a scope.
class ZOLT_LOCK_HOLDER MutexGuard {
  public:
    explicit MutexGuard(CMutexClass& mutex) ZOLT_ACQUIRES(mutex) : mutex_(mutex) { mutex_.Lock(); }
    ~MutexGuard() ZOLT_RELEASES() { mutex_.Unlock(); }
    MutexGuard(const MutexGuard&) = delete;
    MutexGuard& operator=(const MutexGuard&) = delete;

  private:
    CMutexClass& mutex_;
};
