#include "tests/unit/thread/system_calls.h"

#include <poll.h>
#include <pthread.h>
#include <unistd.h>

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

std::atomic<int> restCount{0};

std::mutex sleepsMutex;
bool sleepsRecorded = false;
std::vector<unsigned> sleeps;

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
int __real_ppoll(pollfd* items, nfds_t count, const timespec* longest, const sigset_t* signals);
int __real_usleep(useconds_t microseconds);
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
        // The new thread owns `start` now.
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

int __wrap_ppoll(pollfd* items, nfds_t count, const timespec* longest, const sigset_t* signals) {
    ++restCount;
    return __real_ppoll(items, count, longest, signals);
}

int __wrap_usleep(useconds_t microseconds) {
    {
        const std::lock_guard guard(sleepsMutex);
        if (sleepsRecorded) {
            sleeps.push_back(microseconds);
            return 0;
        }
    }
    return __real_usleep(microseconds);
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

int restsBegun() {
    return restCount;
}

RecordedSleeps::RecordedSleeps() {
    const std::lock_guard guard(sleepsMutex);
    sleepsRecorded = true;
}

RecordedSleeps::~RecordedSleeps() {
    const std::lock_guard guard(sleepsMutex);
    sleepsRecorded = false;
    sleeps.clear();
}

std::vector<unsigned> RecordedSleeps::take() {
    const std::lock_guard guard(sleepsMutex);
    return std::exchange(sleeps, {});
}

void beforeNextSignal(std::function<void()> action) {
    const std::lock_guard guard(signalActionMutex);
    signalAction = std::move(action);
}

}  // namespace system_calls
