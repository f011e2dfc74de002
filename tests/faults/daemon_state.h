#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

/// The resources of the system that a process holds.
struct DaemonState {
    /// The files that its descriptors refer to, sorted, without the numbers of sockets, pipes and
    /// terminals.
    std::vector<std::string> descriptors;
    std::size_t threads = 0;
    /// The memory that belongs to this process alone (RssAnon), in bytes.
    long memory = 0;

    std::string describe() const;
};

/// The state at this moment.
DaemonState stateOf(pid_t process);

/// False under a sanitizer, which keeps freed memory on purpose.
bool memoryIsMeaningful();
