#pragma once

#include <benchmark/benchmark.h>

#include "tests/support/allocation_count.h"

/// Adds to the line of a benchmark what each item takes from the heap on this
/// thread: "allocs" and "bytes". Lives around its loop.
class AllocationCounters {
  public:
    /// `items` are those of one iteration; the time stays that of an iteration.
    explicit AllocationCounters(benchmark::State& state, std::size_t items = 1);
    ~AllocationCounters();
    AllocationCounters(const AllocationCounters&) = delete;
    AllocationCounters& operator=(const AllocationCounters&) = delete;

    /// Does something in the loop that is not measured.
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
