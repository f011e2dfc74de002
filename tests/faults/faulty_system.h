#pragma once

/// The program zolt-faulty is the daemon on a system with faults that a test cannot cause on
/// the real system.
namespace faulty_system {

/// As long as this file exists, the time of the system is the time of its last change.
inline constexpr const char* kClockFile = "/run/zolt-test/clock";
/// As long as this file exists, the system starts only the number of threads in the file.
inline constexpr const char* kThreadsFile = "/run/zolt-test/threads";
/// The message of the daemon if a thread is refused.
inline constexpr const char* kRefusal =
    "error: could not create thread, pthread_create failed (11)!";

}  // namespace faulty_system
