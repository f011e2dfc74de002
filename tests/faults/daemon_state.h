#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

/// What a process holds of the system.
struct DaemonState {
    /// What its descriptors stand for, sorted; numbers of sockets, pipes and
    /// terminals are left out.
    std::vector<std::string> descriptors;
    std::size_t threads = 0;
    /// Memory of its own that is in use (RssAnon), in bytes.
    long memory = 0;

    std::string describe() const;
};

/// The state at this moment.
DaemonState stateOf(pid_t process);

/// Memory says nothing under a sanitizer, which keeps what is freed on purpose.
bool memoryIsMeaningful();
