#pragma once

#include <functional>
#include <vector>

/// The linker sends the system calls of the code under test through system_calls.cpp, so
/// that a test can hold, refuse or count them. While none of these objects lives, each call
/// goes straight on to the system. At most one of a kind lives at a time.
namespace system_calls {

/// Holds the kernels created while it lives before their first instruction.
class HeldKernels {
  public:
    HeldKernels();
    ~HeldKernels() { release(); }
    HeldKernels(const HeldKernels&) = delete;
    HeldKernels& operator=(const HeldKernels&) = delete;
    void release();
};

/// Refuses to create kernels while it lives, with this error number.
class RefusedKernels {
  public:
    explicit RefusedKernels(int error);
    ~RefusedKernels();
    RefusedKernels(const RefusedKernels&) = delete;
    RefusedKernels& operator=(const RefusedKernels&) = delete;
};

/// How many kernels were asked for in this process so far.
int kernelsCreated();

/// How many waits for a condition variable have begun in this process so far;
/// a thread that waits is counted before it gives up the mutex.
int waitsBegun();

/// Counts the pauses of exactly this length that any thread asks for while it
/// lives.
class PauseCount {
  public:
    explicit PauseCount(long nanoseconds);
    ~PauseCount();
    PauseCount(const PauseCount&) = delete;
    PauseCount& operator=(const PauseCount&) = delete;
    int value() const;
};

/// How many sleeps for work have begun in this process so far.
int restsBegun();

/// Records the sleeps in microseconds that any thread asks for while it lives. They take no
/// time then.
class RecordedSleeps {
  public:
    RecordedSleeps();
    ~RecordedSleeps();
    RecordedSleeps(const RecordedSleeps&) = delete;
    RecordedSleeps& operator=(const RecordedSleeps&) = delete;
    /// The lengths since the last take(), in order.
    std::vector<unsigned> take();
};

/// Runs `action` once, where the next condition variable is about to be
/// signalled, on the thread that signals.
void beforeNextSignal(std::function<void()> action);

}  // namespace system_calls
