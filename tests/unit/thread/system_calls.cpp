#include "tests/unit/thread/system_calls.h"

#include <pthread.h>

#include <atomic>
#include <ctime>
#include <memory>
#include <mutex>
#include <utility>

#include "tests/support/wait.h"

namespace {

std::atomic<bool> kernelsHeld{false};
std::atomic<int> refusalError{0};
std::atomic<int> kernelCount{0};
std::atomic<int> waitCount{0};

constexpr long kNoPause = -1;
std::atomic<long> countedPause{kNoPause};
std::atomic<int> pauseCount{0};

std::mutex signalActionMutex;
std::function<void()> signalAction;

struct HeldStart {
    void* (*function)(void*);
    void* argument;
};

void* runWhenReleased(void* data) {
    const std::unique_ptr<HeldStart> start(static_cast<HeldStart*>(data));
    support::waitUntil([] { return !kernelsHeld.load(); });
    return start->function(start->argument);
}

void countPause(long nanoseconds) {
    if (nanoseconds == countedPause) {
        ++pauseCount;
    }
}

}  // namespace

extern "C" {

int __real_pthread_create(pthread_t* handle, const pthread_attr_t* attributes,
                          void* (*function)(void*), void* argument);
int __real_pthread_cond_wait(pthread_cond_t* condition, pthread_mutex_t* mutex);
int __real_pthread_cond_signal(pthread_cond_t* condition);
int __real_nanosleep(const timespec* request, timespec* rest);
// The linker's names for spinFor(long).
void __real__Z7spinForl(long nanoseconds);
void __wrap__Z7spinForl(long nanoseconds);

int __wrap_pthread_create(pthread_t* handle, const pthread_attr_t* attributes,
                          void* (*function)(void*), void* argument) {
    ++kernelCount;
    if (refusalError != 0) {
        return refusalError;
    }
    if (!kernelsHeld) {
        return __real_pthread_create(handle, attributes, function, argument);
    }
    auto start = std::make_unique<HeldStart>(HeldStart{function, argument});
    const int error = __real_pthread_create(handle, attributes, runWhenReleased, start.get());
    if (error == 0) {
        // The new thread owns it now.
        static_cast<void>(start.release());
    }
    return error;
}

int __wrap_pthread_cond_wait(pthread_cond_t* condition, pthread_mutex_t* mutex) {
    ++waitCount;
    return __real_pthread_cond_wait(condition, mutex);
}

int __wrap_pthread_cond_signal(pthread_cond_t* condition) {
    std::function<void()> action;
    {
        const std::lock_guard guard(signalActionMutex);
        action = std::exchange(signalAction, nullptr);
    }
    if (action) {
        action();
    }
    return __real_pthread_cond_signal(condition);
}

int __wrap_nanosleep(const timespec* request, timespec* rest) {
    if (request->tv_sec == 0) {
        countPause(request->tv_nsec);
    }
    return __real_nanosleep(request, rest);
}

void __wrap__Z7spinForl(long nanoseconds) {
    countPause(nanoseconds);
    __real__Z7spinForl(nanoseconds);
}

}  // extern "C"

namespace system_calls {

HeldKernels::HeldKernels() {
    kernelsHeld = true;
}

void HeldKernels::release() {
    kernelsHeld = false;
}

RefusedKernels::RefusedKernels(int error) {
    refusalError = error;
}

RefusedKernels::~RefusedKernels() {
    refusalError = 0;
}

int kernelsCreated() {
    return kernelCount;
}

int waitsBegun() {
    return waitCount;
}

PauseCount::PauseCount(long nanoseconds) {
    pauseCount = 0;
    countedPause = nanoseconds;
}

PauseCount::~PauseCount() {
    countedPause = kNoPause;
}

int PauseCount::value() const {
    return pauseCount;
}

void beforeNextSignal(std::function<void()> action) {
    const std::lock_guard guard(signalActionMutex);
    signalAction = std::move(action);
}

}  // namespace system_calls
