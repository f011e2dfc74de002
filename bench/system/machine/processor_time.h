#pragma once

#include <sys/types.h>

namespace bench {

/// Seconds that all threads of a process have had a processor, to the nanosecond.
double processorSeconds(pid_t process);

/// The same with the threads that have ended. The process may have ended, too, as
/// long as nobody has waited for it.
double processorSecondsUpToNow(pid_t process);

/// Seconds of this process (RUSAGE_SELF), or of those children of it that it has
/// waited for, with all that these have waited for (RUSAGE_CHILDREN).
double usedSeconds(int who);

}  // namespace bench
