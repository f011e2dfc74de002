#include "bench/system/placement.h"

#include <fstream>

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

std::string numbersOf(const cpu_set_t& processors) {
    std::string text;
    for (int i = 0; i < CPU_SETSIZE; ++i) {
        if (CPU_ISSET(i, &processors)) text += " " + std::to_string(i);
    }
    return text;
}

// Of all queues of work that are not tied to a processor anyway.
bool sendKernelWorkersTo(int processor) {
    constexpr int kBitsOfWord = 32;
    std::ofstream mask("/sys/devices/virtual/workqueue/cpumask");
    // Words of eight digits with commas between them, the last processors first.
    mask << std::hex << (1U << (processor % kBitsOfWord));
    for (int word = processor / kBitsOfWord; word > 0; --word) mask << ",00000000";
    mask.close();
    return !mask.fail();
}

}  // namespace

Placement::Placement() {
    cpu_set_t all;
    ::sched_getaffinity(0, sizeof all, &all);
    CPU_ZERO(&instrument_);
    CPU_SET(lastOf(all), &instrument_);
    CPU_XOR(&contestants_, &all, &instrument_);
    if (CPU_COUNT(&contestants_) == 0) contestants_ = all;
    workersMoved_ = sendKernelWorkersTo(lastOf(all));
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
    take(contestants_, kOrdinary);
}

std::string Placement::describe() const {
    return "slave and client on processor" + numbersOf(instrument_) +
           (realTime_ ? " at real-time priority" : " at ordinary priority") +
           (workersMoved_ ? ", with the kernel's workers" : "; the kernel's workers on any") +
           "; contestants on processor" + numbersOf(contestants_) + " at ordinary priority";
}

}  // namespace bench
