// Measures the translator with each form of IO command, and with a line that has no form.

#include <benchmark/benchmark.h>

#include <array>
#include <string>

#include "bench/micro/allocation_counters.h"
#include "bench/micro/quiet_host.h"
#include "control/io_forms.h"

namespace {

struct Row {
    const char* command;
    bool legal = true;
};

constexpr std::array kRows{
    Row{"a5b1dFB"},       Row{"a0b3d7F"},  Row{"aAb1d10"},
    Row{"a9sHS0A0B0C0D"}, Row{"aElCL"},    Row{"aElPAp0001tTemperature 21 C"},
    Row{"aElXX", false},  Row{"x", false},
};

void translate(benchmark::State& state, const Row& row) {
    QuietHost host;
    const std::string command = row.command;
    if (translateOutput(command, host.cards()).has_value() != row.legal) {
        state.SkipWithError("the command is not translated as expected");
        return;
    }
    const AllocationCounters counters(state);
    for (auto _ : state) benchmark::DoNotOptimize(translateOutput(command, host.cards()));
}

const bool ioFormsRegistered = [] {
    for (const Row& row : kRows) {
        benchmark::RegisterBenchmark((std::string("IO: ") + row.command).c_str(), translate, row);
    }
    return true;
}();

}  // namespace
