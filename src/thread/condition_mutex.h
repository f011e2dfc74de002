#pragma once

#include <pthread.h>

#include "thread/annotations.h"

/// The mutex that goes with condition variables: a POSIX mutex with default attributes,
/// as a lock that the compiler can follow.
class ZOLT_LOCK ConditionMutex {
  public:
    ConditionMutex() { pthread_mutex_init(&mutex_, nullptr); }
    /// REQUIRES: no thread holds the mutex.
    ~ConditionMutex() { pthread_mutex_destroy(&mutex_); }
    ConditionMutex(const ConditionMutex&) = delete;
    ConditionMutex& operator=(const ConditionMutex&) = delete;

    void lock() ZOLT_ACQUIRES() { pthread_mutex_lock(&mutex_); }
    void unlock() ZOLT_RELEASES() { pthread_mutex_unlock(&mutex_); }
    /// Gives the mutex up until the condition is signalled, and returns with the mutex
    /// held again. May also return without a signal.
    void waitFor(pthread_cond_t& condition) ZOLT_REQUIRES(this) {
        pthread_cond_wait(&condition, &mutex_);
    }

  private:
    pthread_mutex_t mutex_{};
};
