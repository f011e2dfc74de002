#pragma once

#include <sys/types.h>

namespace bench {

/// The processor time of all threads that a process has, in seconds, exact to the nanosecond.
double processorSeconds(pid_t process);

/// The same including the threads that have ended. The process itself may have ended, but
/// its parent must not have waited for it.
double processorSecondsUpToNow(pid_t process);

/// The processor time in seconds of this process (RUSAGE_SELF), or of the children that it
/// has waited for, including their own children (RUSAGE_CHILDREN).
double usedSeconds(int who);

}  // namespace bench
