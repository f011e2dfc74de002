#include "bench/system/placement.h"

namespace bench {
namespace {

constexpr int kSlavePriority = 2;
constexpr int kClientPriority = 1;
constexpr int kOrdinary = 0;

bool setPriority(int priority) {
    const sched_param parameters{priority};
    return ::sched_setscheduler(0, priority == kOrdinary ? SCHED_OTHER : SCHED_FIFO, &parameters) ==
           0;
}

// The last one: interrupts tend to go to the first.
int lastOf(const cpu_set_t& processors) {
    int last = 0;
    for (int i = 0; i < CPU_SETSIZE; ++i) {
        if (CPU_ISSET(i, &processors)) last = i;
    }
    return last;
}

}  // namespace

Placement::Placement() {
    ::sched_getaffinity(0, sizeof all_, &all_);
    CPU_ZERO(&instrument_);
    CPU_SET(lastOf(all_), &instrument_);
    realTime_ = setPriority(kClientPriority);
    setPriority(kOrdinary);
}

void Placement::take(const cpu_set_t& processors, int priority) const {
    ::sched_setaffinity(0, sizeof processors, &processors);
    if (realTime_) setPriority(priority);
}

void Placement::asSlave() const {
    take(instrument_, kSlavePriority);
}

void Placement::asClient() const {
    take(instrument_, kClientPriority);
}

void Placement::asContestant() const {
    take(all_, kOrdinary);
}

std::string Placement::describe() const {
    return "slave and client on processor " + std::to_string(lastOf(instrument_)) +
           (realTime_ ? " at real-time priority" : " at ordinary priority") +
           ", contestants on any, at ordinary priority";
}

}  // namespace bench
