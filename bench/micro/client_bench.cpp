// Measures an interface's cycle with a client on loopback; system calls are part of it.

#include <benchmark/benchmark.h>

#include <string>

#include "bench/micro/allocation_counters.h"
#include "bench/micro/bench_daemon.h"

namespace {

void idleInterfaceCycle(benchmark::State& state) {
    const support::HandRunDaemon daemon(outputCards());
    const auto client = daemon.connect(daemon.io());
    const AllocationCounters counters(state);
    for (auto _ : state) daemon.io().OnTask();
}

/// The argument is the number of the reply's bytes.
void reply(benchmark::State& state) {
    const support::HandRunDaemon daemon(outputCards());
    auto client = daemon.connect(daemon.io());
    const std::string text(static_cast<std::size_t>(state.range(0)), 'x');
    AllocationCounters counters(state);
    for (auto _ : state) {
        counters.aside([&] {
            client.receive();
            daemon.io().replyQueue.ToQueue(ByteList(text.begin(), text.end()));
        });
        daemon.io().OnTask();
    }
}

BENCHMARK(idleInterfaceCycle)->Name("interface cycle: nothing to do");
BENCHMARK(reply)->Name("interface cycle: a reply")->Arg(9)->Arg(50);

}  // namespace
