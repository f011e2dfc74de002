#pragma once

#include <sys/types.h>

namespace bench {

/// Seconds that all threads of a process have had a processor, to the nanosecond.
double processorSeconds(pid_t process);

/// Seconds that its children have had one that have ended, to the hundredth.
double childSeconds(pid_t process);

}  // namespace bench
