#pragma once

#include <sys/types.h>

#include <cstddef>

namespace support {

/// The resources that a process holds.
struct Resources {
    /// Memory in KiB: all that is resident, and the part that belongs to this process alone.
    std::size_t residentKib = 0;
    std::size_t anonymousKib = 0;
    std::size_t descriptors = 0;
    std::size_t threads = 0;
};

/// The lowest values of several looks within some tenths of a second: a log line that is
/// being written holds a descriptor for a moment.
Resources resourcesAtRest(pid_t process);

}  // namespace support
