#include "bench/micro/allocation_counters.h"

AllocationCounters::AllocationCounters(benchmark::State& state, std::size_t items)
    : state_(state), items_(static_cast<double>(items)), before_(support::allocations()) {}

AllocationCounters::~AllocationCounters() {
    const support::Allocations after = support::allocations();
    const double items = items_ * static_cast<double>(state_.iterations());
    state_.counters["allocs"] =
        static_cast<double>(after.count - before_.count - aside_.count) / items;
    state_.counters["bytes"] =
        static_cast<double>(after.bytes - before_.bytes - aside_.bytes) / items;
}
