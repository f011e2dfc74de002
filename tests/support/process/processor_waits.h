#pragma once

#include <sys/types.h>

#include <chrono>
#include <map>

namespace support {

/// The time that each thread of this private view (those of the daemon and of the simulated
/// bus) has been ready to run without getting a processor, by thread number. Empty on a
/// kernel that does not count this.
using ProcessorWaits = std::map<pid_t, std::chrono::nanoseconds>;
ProcessorWaits processorWaits();

/// The longest time that any thread has waited between two calls of processorWaits(). The
/// wait of a thread that is only in `after` counts from its start.
std::chrono::milliseconds longestWait(const ProcessorWaits& before, const ProcessorWaits& after);

}  // namespace support
