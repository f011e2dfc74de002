#pragma once

#include <ctime>
#include <string>
#include <vector>

/// The linker sends the system calls of the code under test through system_calls.cpp.
/// While none of these objects lives, each call goes straight on to the system, except
/// that those to the system log never reach it.
namespace system_calls {

/// Sets the clock of the code under test while it lives.
class FixedClock {
  public:
    explicit FixedClock(std::time_t now) { set(now); }
    ~FixedClock();
    FixedClock(const FixedClock&) = delete;
    FixedClock& operator=(const FixedClock&) = delete;
    void set(std::time_t now);
};

/// Holds the next opening of this file until released.
class HeldOpen {
  public:
    explicit HeldOpen(std::string path);
    ~HeldOpen() { release(); }
    HeldOpen(const HeldOpen&) = delete;
    HeldOpen& operator=(const HeldOpen&) = delete;
    bool isReached() const;
    void release();
};

/// How often the clock was read in this process so far.
int clockReadings();

/// The calls to the system log since the last takeLogCalls(), in order, one
/// text each: "mask 63", "priority 5: message", "close".
std::vector<std::string> takeLogCalls();

}  // namespace system_calls
