// Measures one item through a queue, as in the daemon: put in and taken out. The argument
// is the number of the item's bytes.

#include <benchmark/benchmark.h>

#include <optional>
#include <thread>
#include <utility>

#include "bench/micro/allocation_counters.h"
#include "core/zlqueue.h"

namespace {

ByteList itemOf(const benchmark::State& state) {
    return ByteList(static_cast<std::size_t>(state.range(0)), 'x');
}

/// Tries until there is an item.
ByteList awaitItem(ZLQUEUE& queue) {
    while (true) {
        if (std::optional<ByteList> item = queue.takeNext()) return std::move(*item);
        std::this_thread::yield();
    }
}

void emptyQueue(benchmark::State& state) {
    ZLQUEUE queue;
    const AllocationCounters counters(state);
    for (auto _ : state) benchmark::DoNotOptimize(queue.takeNext());
}

void movedItem(benchmark::State& state) {
    ZLQUEUE queue;
    ByteList item = itemOf(state);
    const AllocationCounters counters(state);
    for (auto _ : state) {
        queue.ToQueue(std::move(item));
        item = awaitItem(queue);
    }
}

void copiedItem(benchmark::State& state) {
    ZLQUEUE queue;
    const ByteList item = itemOf(state);
    const AllocationCounters counters(state);
    for (auto _ : state) {
        queue.ToQueue(item);
        benchmark::DoNotOptimize(awaitItem(queue));
    }
}

/// The item goes to another thread and back; each thread looks for the item all the time.
void betweenThreads(benchmark::State& state) {
    ZLQUEUE there;
    ZLQUEUE back;
    ByteList item = itemOf(state);
    const std::jthread echo([&there, &back](const std::stop_token& stop) {
        while (!stop.stop_requested()) {
            if (std::optional<ByteList> taken = there.takeNext()) {
                back.ToQueue(std::move(*taken));
            } else {
                std::this_thread::yield();
            }
        }
    });
    const AllocationCounters counters(state);
    for (auto _ : state) {
        there.ToQueue(std::move(item));
        item = awaitItem(back);
    }
}

BENCHMARK(emptyQueue)->Name("queue: asked, empty");
BENCHMARK(movedItem)->Name("queue: item moved")->Arg(5)->Arg(50);
BENCHMARK(copiedItem)->Name("queue: item copied")->Arg(5)->Arg(50);
BENCHMARK(betweenThreads)->Name("queue: to a thread and back")->Arg(5)->UseRealTime();

}  // namespace
