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

/// The longest that any one thread has waited since `before` was taken.
std::chrono::milliseconds longestWaitSince(const ProcessorWaits& before);

}  // namespace support
