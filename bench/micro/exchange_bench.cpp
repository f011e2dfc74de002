// Measures the serial link's cycle on a bus in memory that answers at once: the host's side
// of an exchange, without system calls.

#include <benchmark/benchmark.h>

#include "bench/micro/allocation_counters.h"
#include "bench/micro/bench_daemon.h"

namespace {

void idleLinkCycle(benchmark::State& state) {
    const support::HandRunDaemon daemon(sixteenInputs());
    const AllocationCounters counters(state);
    for (auto _ : state) daemon.serial().OnTask();
}

/// A block command and its acknowledgement.
void exchange(benchmark::State& state) {
    const support::HandRunDaemon daemon(outputCards());
    const ByteList frame{wire::kOutput, 5, 2, '\xFF', '\xFB'};
    const AllocationCounters counters(state);
    for (auto _ : state) {
        daemon.serial().commandQueue(5).ToQueue(frame);
        daemon.serial().OnTask();
    }
}

/// The argument is the number of polled cards.
void polls(benchmark::State& state) {
    const support::HandRunDaemon daemon([&state] {
        auto kinds = sixteenInputs();
        std::fill(kinds.begin() + state.range(0), kinds.end(), '\0');
        return kinds;
    }());
    daemon.serial().globalPolling = true;
    daemon.serial().OnTask();
    const AllocationCounters counters(state, static_cast<std::size_t>(state.range(0)));
    for (auto _ : state) daemon.serial().OnTask();
}

BENCHMARK(idleLinkCycle)->Name("serial cycle: nothing to do");
BENCHMARK(exchange)->Name("serial cycle: one output");
BENCHMARK(polls)->Name("serial cycle: polls")->Arg(1)->Arg(16);

}  // namespace
