#include "bench/system/machine/placement.h"

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

// The last processor, because interrupts tend to go to the first.
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

// Pins the kernel's unbound workqueues to this processor; false when the system refuses.
bool sendKernelWorkersTo(int processor) {
    constexpr int kBitsOfWord = 32;
    std::ofstream mask("/sys/devices/virtual/workqueue/cpumask");
    // The mask is written in words of eight digits with commas between them, the last
    // processors first.
    mask << std::hex << (1U << (processor % kBitsOfWord));
    for (int word = processor / kBitsOfWord; word > 0; --word) mask << ",00000000";
    mask.close();
    return !mask.fail();
}

}  // namespace

Placement::Placement(const Crowd& crowd) : crowd_(crowd) {
    cpu_set_t all;
    ::sched_getaffinity(0, sizeof all, &all);
    if (crowd.any() && !crowd.oneProcessor) {
        instrument_ = contestants_ = all;
        return;
    }
    CPU_ZERO(&instrument_);
    CPU_SET(lastOf(all), &instrument_);
    workersMoved_ = sendKernelWorkersTo(lastOf(all));
    if (crowd.oneProcessor) {
        contestants_ = instrument_;
        take(instrument_, kOrdinary);
        return;
    }
    CPU_XOR(&contestants_, &all, &instrument_);
    if (CPU_COUNT(&contestants_) == 0) contestants_ = all;
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
    if (crowd_.any()) {
        return "cards, client and contestants on processor" + numbersOf(contestants_) +
               " at ordinary priority" +
               (workersMoved_ ? ", with the kernel's workers" : "; the kernel's workers on any");
    }
    return "slave and client on processor" + numbersOf(instrument_) +
           (realTime_ ? " at real-time priority" : " at ordinary priority") +
           (workersMoved_ ? ", with the kernel's workers" : "; the kernel's workers on any") +
           "; contestants on processor" + numbersOf(contestants_) + " at ordinary priority";
}

}  // namespace bench
