#pragma once

#include <sys/types.h>

#include <chrono>
#include <map>

namespace support {

/// How long each thread of this private view (the daemon's, the simulated bus's)
/// has been ready to run without getting a processor, by thread number. Empty on
/// a kernel that does not count it.
using ProcessorWaits = std::map<pid_t, std::chrono::nanoseconds>;
ProcessorWaits processorWaits();

/// The longest that any one thread has waited between two looks; one that is new
/// in the second has waited since its start.
std::chrono::milliseconds longestWait(const ProcessorWaits& before, const ProcessorWaits& after);

}  // namespace support
