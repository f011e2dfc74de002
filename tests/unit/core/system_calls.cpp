#include "tests/unit/core/system_calls.h"

#include <fcntl.h>
#include <sys/types.h>

#include <array>
#include <atomic>
#include <cstdarg>
#include <cstdio>
#include <mutex>
#include <utility>

#include "tests/support/wait.h"

namespace {

constexpr std::time_t kRealTime = -1;
std::atomic<std::time_t> fixedTime{kRealTime};
std::atomic<int> clockReadingCount{0};

std::mutex heldPathMutex;
/// Empty when no opening is to be held.
std::string heldPath;
std::atomic<bool> openReached{false};
std::atomic<bool> openReleased{false};

std::mutex logCallsMutex;
std::vector<std::string> logCalls;

void recordLogCall(std::string call) {
    const std::lock_guard guard(logCallsMutex);
    logCalls.push_back(std::move(call));
}

void recordMessage(int priority, const char* format, std::va_list arguments) {
    std::array<char, 1000> message{};
    std::vsnprintf(message.data(), message.size(), format, arguments);
    recordLogCall("priority " + std::to_string(priority) + ": " + message.data());
}

bool isToBeHeld(const char* path) {
    const std::lock_guard guard(heldPathMutex);
    if (heldPath.empty() || heldPath != path) {
        return false;
    }
    heldPath.clear();
    return true;
}

}  // namespace

extern "C" {

int __real_open(const char* path, int flags, ...);
std::time_t __real_time(std::time_t* result);

int __wrap_open(const char* path, int flags, ...) {
    mode_t mode = 0;
    if ((flags & O_CREAT) != 0) {
        std::va_list arguments;
        va_start(arguments, flags);
        mode = va_arg(arguments, mode_t);
        va_end(arguments);
    }
    if (isToBeHeld(path)) {
        openReached = true;
        support::waitUntil([] { return openReleased.load(); });
    }
    return __real_open(path, flags, mode);
}

std::time_t __wrap_time(std::time_t* result) {
    const std::time_t fixed = fixedTime;
    const std::time_t now = fixed == kRealTime ? __real_time(nullptr) : fixed;
    if (result != nullptr) {
        *result = now;
    }
    // The count comes last, so that a test that sees it may change the clock.
    ++clockReadingCount;
    return now;
}

void __wrap_openlog(const char* /*identity*/, int /*option*/, int /*facility*/) {
    recordLogCall("open");
}

int __wrap_setlogmask(int mask) {
    recordLogCall("mask " + std::to_string(mask));
    return 0;
}

void __wrap_syslog(int priority, const char* format, ...) {
    std::va_list arguments;
    va_start(arguments, format);
    recordMessage(priority, format, arguments);
    va_end(arguments);
}

// A build with fortified calls turns syslog() into this call.
void __wrap___syslog_chk(int priority, int /*flag*/, const char* format, ...) {
    std::va_list arguments;
    va_start(arguments, format);
    recordMessage(priority, format, arguments);
    va_end(arguments);
}

void __wrap_closelog() {
    recordLogCall("close");
}

}  // extern "C"

namespace system_calls {

FixedClock::~FixedClock() {
    set(kRealTime);
}

void FixedClock::set(std::time_t now) {
    fixedTime = now;
}

HeldOpen::HeldOpen(std::string path) {
    openReached = false;
    openReleased = false;
    const std::lock_guard guard(heldPathMutex);
    heldPath = std::move(path);
}

bool HeldOpen::isReached() const {
    return support::waitUntil([] { return openReached.load(); });
}

void HeldOpen::release() {
    openReleased = true;
}

int clockReadings() {
    return clockReadingCount;
}

std::vector<std::string> takeLogCalls() {
    const std::lock_guard guard(logCallsMutex);
    return std::exchange(logCalls, {});
}

}  // namespace system_calls
