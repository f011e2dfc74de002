// Measures cycles of the master loop. The loop runs as long as the benchmark does, and each
// of its pauses is the end of an iteration.

#include <benchmark/benchmark.h>

#include <optional>

#include "bench/micro/allocation_counters.h"
#include "bench/micro/bench_daemon.h"

namespace {

/// Each cycle has the items that `prepare` queues for it.
template <typename Prepare>
void measureCycles(benchmark::State& state, support::HandRunDaemon& daemon,
                   const Prepare& prepare) {
    // The counters end with the last iteration, because the loop's end is not measured.
    std::optional<AllocationCounters> counters;
    daemon.runMaster([&] {
        if (counters) {
            counters->aside(prepare);
        } else {
            prepare();
            counters.emplace(state);
        }
        const bool goOn = state.KeepRunning();
        if (!goOn) counters.reset();
        return goOn;
    });
}

void idleMasterCycle(benchmark::State& state) {
    support::HandRunDaemon daemon(sixteenInputs());
    std::optional<AllocationCounters> counters;
    daemon.runMaster([&] {
        if (!counters) counters.emplace(state);
        const bool goOn = state.KeepRunning();
        if (!goOn) counters.reset();
        return goOn;
    });
}

void report(benchmark::State& state) {
    support::HandRunDaemon daemon(sixteenInputs());
    daemon.serial().globalPolling = true;
    daemon.serial().OnTask();
    auto client = daemon.connect(daemon.io());
    measureCycles(state, daemon, [&daemon, &client] {
        daemon.io().OnTask();
        client.receive();
        daemon.bus.inputs[3][0] ^= 1;
        daemon.serial().OnTask();
    });
}

void outputCommand(benchmark::State& state) {
    support::HandRunDaemon daemon(outputCards());
    auto client = daemon.connect(daemon.io());
    measureCycles(state, daemon, [&daemon, &client] {
        daemon.serial().OnTask();
        client.send("a5b1dFB\r\n");
        do {
            daemon.io().OnTask();
        } while (!client.peerHasReadAll());
    });
}

BENCHMARK(idleMasterCycle)->Name("master cycle: nothing to do");
BENCHMARK(report)->Name("master cycle: a report");
BENCHMARK(outputCommand)->Name("master cycle: an output command");

}  // namespace
