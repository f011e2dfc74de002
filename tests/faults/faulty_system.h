#pragma once

/// The program zolt-faulty is the daemon on a system that does to it what the real
/// one cannot be made to do in a test.
namespace faulty_system {

/// While this file exists, the time is that of its last change.
inline constexpr const char* kClockFile = "/run/zolt-test/clock";
/// While this file exists, the system starts as many threads as it says.
inline constexpr const char* kThreadsFile = "/run/zolt-test/threads";
/// What the daemon says to a thread that is refused.
inline constexpr const char* kRefusal =
    "error: could not create thread, pthread_create failed (11)!";

}  // namespace faulty_system
