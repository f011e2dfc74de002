#pragma once

#include <sys/types.h>

#include <chrono>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "lib/os/descriptor.h"
#include "tests/support/wait.h"

namespace support {

/// Where a started program's standard streams go, as descriptors that stay the
/// caller's; kNull is /dev/null, kClosed leaves the stream closed.
struct StandardStreams {
    static constexpr int kNull = -1;
    static constexpr int kClosed = -2;
    int input = kNull;
    int output = kNull;
    int error = kNull;
};

/// A new file for such a stream, which is appended to; throws std::runtime_error when it
/// cannot be written.
zolt_os::Descriptor createOutputFile(const std::filesystem::path& path);

/// How a process ended, in words: "status 0", "signal 9".
std::string describeWaitStatus(int waitStatus);

/// Starts a program with the default signal actions and returns its process
/// number; throws std::runtime_error when it cannot fork. A program that cannot
/// be executed ends with status 127.
pid_t spawn(const std::vector<std::string>& command, const StandardStreams& streams);

/// Waits for a child to end and reaps it; nothing when it still runs after
/// `patience`.
std::optional<int> reap(pid_t child, std::chrono::milliseconds patience = kPatience);

/// Makes this process the parent of every orphan below it, so that a process
/// that has put itself into the background can be reaped.
void adoptOrphans();

/// The children of this process, ended ones included, whose program name is
/// `program` (its last path component), in ascending order of their numbers.
std::vector<pid_t> childrenRunning(const std::string& program);

}  // namespace support
