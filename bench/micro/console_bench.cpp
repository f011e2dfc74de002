// Measures the interpreter with a line of each command; the replies are taken out of their
// queue again. Cards answer at once and pauses take no time.

#include <benchmark/benchmark.h>

#include <array>
#include <string>

#include "bench/micro/allocation_counters.h"
#include "bench/micro/quiet_host.h"
#include "control/console.h"

namespace {

constexpr std::array kLines{
    "SPEED=50",          "DISABLEPOLL",    "DRVVER",      "POLLON:3",      "POLLOFF:3",
    "ENABLEPOLL",        "POLLSTATE",      "DISCOVER",    "FORCEDISCOVER", "EXIT",
    "GETLASTINPST:3=1",  "HELP",           "IOEXAMPLES",  "REBOOT:5",      "LCDSELFTEST:E=ON",
    "LCDINITLIGHT:E=ON", "SETANMASK:F=3F", "GETANMASK:F", "STOREANMASK:F", "STORESRVPOS:0",
    "MOVESTRPOS:0",      "SETSCA1:0=7F",   "GETSCB1:0",   "SETMSR1:A=10",  "GETMSR1:A",
    "STOREMSRS:A",
};

/// Empties the queue and returns how many of the items are errors.
std::size_t empty(ZLQUEUE& queue) {
    std::size_t errors = 0;
    while (!queue.IsEmpty()) {
        const ByteList item = queue.DeQueue();
        errors += std::string(item.begin(), item.end()).starts_with("CIE: ") ? 1U : 0U;
    }
    return errors;
}

void interpret(benchmark::State& state, const std::string& command) {
    QuietHost host;
    Console console(host, "\r\n", "\r\n");
    const std::string line = command + "\r\n";
    {
        const AllocationCounters counters(state);
        for (auto _ : state) {
            console.interpret(line);
            while (!host.replies.IsEmpty()) host.replies.DeQueue();
            while (!host.requests.IsEmpty()) host.requests.DeQueue();
            while (!host.reports.IsEmpty()) host.reports.DeQueue();
        }
    }
    console.interpret(line);
    if (empty(host.replies) != 0) state.SkipWithError("the line is not a command");
}

const bool consoleLinesRegistered = [] {
    for (const char* line : kLines) {
        benchmark::RegisterBenchmark((std::string("console: ") + line).c_str(), interpret,
                                     std::string(line));
    }
    return true;
}();

}  // namespace
