#pragma once

#include <sys/types.h>

#include <cstddef>

namespace support {

/// What a process holds at rest.
struct Resources {
    /// Kibibytes; all that is in memory, and of it what is the process's own.
    std::size_t residentKib = 0;
    std::size_t anonymousKib = 0;
    std::size_t descriptors = 0;
    std::size_t threads = 0;
};

/// The least of several looks in some tenths of a second: a log line that is just
/// being written holds a descriptor for a moment.
Resources resourcesAtRest(pid_t process);

}  // namespace support
