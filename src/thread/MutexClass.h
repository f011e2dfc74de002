#pragma once

#include <pthread.h>

#include <atomic>

/// A mutex that remembers its owner. Re-entrant without a count, on purpose: a
/// nested Lock() by the owner does nothing and the first Unlock() frees the
/// mutex for good, so keep locked regions flat. Any thread may call any
/// operation.
class CMutexClass {
  public:
    CMutexClass();
    /// Locks and unlocks first, so that a holder finishes.
    ~CMutexClass();
    CMutexClass(const CMutexClass&) = delete;
    CMutexClass& operator=(const CMutexClass&) = delete;

    void Lock();
    /// Does nothing when the caller is not the owner.
    void Unlock();

    bool Created() const { return created_; }
    bool HeldByCaller() const { return owner_.load() == pthread_self(); }

  private:
    pthread_mutex_t mutex_{};
    /// The holder, 0 when free. Read without the mutex: only the holder can
    /// find itself here.
    std::atomic<pthread_t> owner_{0};
    bool created_;
};

/// Holds a CMutexClass for a scope.
class MutexGuard {
  public:
    explicit MutexGuard(CMutexClass& mutex) : mutex_(mutex) { mutex_.Lock(); }
    ~MutexGuard() { mutex_.Unlock(); }
    MutexGuard(const MutexGuard&) = delete;
    MutexGuard& operator=(const MutexGuard&) = delete;

  private:
    CMutexClass& mutex_;
};
