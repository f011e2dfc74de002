// Measures a message of the log, with a file and without one.

#include <benchmark/benchmark.h>

#include "bench/micro/allocation_counters.h"
#include "bench/micro/bench_daemon.h"
#include "core/logger.h"

namespace {

void message(benchmark::State& state, const char* file) {
    LOGGER logger;
    logger.fileName = file;
    const std::string path = "/dev/ttyUSB0";
    const AllocationCounters counters(state);
    for (auto _ : state) logger.info("comm timeout ", path);
}

BENCHMARK_CAPTURE(message, none, "")->Name("log: no file");
BENCHMARK_CAPTURE(message, file, "/dev/null")->Name("log: a file");

}  // namespace
