#pragma once

#include <benchmark/benchmark.h>

#include "tests/support/allocation_count.h"

/// Adds to a benchmark's line what each item takes from the heap on this thread: "allocs"
/// and "bytes". The object lives around the benchmark's loop.
class AllocationCounters {
  public:
    /// `items` is the number of items in an iteration; the time is still that of an iteration.
    explicit AllocationCounters(benchmark::State& state, std::size_t items = 1);
    ~AllocationCounters();
    AllocationCounters(const AllocationCounters&) = delete;
    AllocationCounters& operator=(const AllocationCounters&) = delete;

    /// Runs something in the loop without measuring it.
    template <typename Action>
    void aside(const Action& action) {
        state_.PauseTiming();
        const support::Allocations taken = support::allocationsOf(action);
        aside_.count += taken.count;
        aside_.bytes += taken.bytes;
        state_.ResumeTiming();
    }

  private:
    benchmark::State& state_;
    const double items_;
    const support::Allocations before_;
    support::Allocations aside_;
};
