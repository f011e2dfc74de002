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

/// The descriptors for the standard streams of a started program; the caller keeps them.
/// kNull means /dev/null, kClosed a closed stream.
struct StandardStreams {
    static constexpr int kNull = -1;
    static constexpr int kClosed = -2;
    int input = kNull;
    int output = kNull;
    int error = kNull;
};

/// A new file for such a stream, opened for appending. Throws std::runtime_error if the file
/// cannot be written.
zolt_os::Descriptor createOutputFile(const std::filesystem::path& path);

/// How a process ended, in words: "status 0", "signal 9".
std::string describeWaitStatus(int waitStatus);

/// Starts a program with the default signal actions and returns its process number. Throws
/// std::system_error if fork() fails. A program that cannot be executed ends with status
/// 127.
pid_t spawn(const std::vector<std::string>& command, const StandardStreams& streams);

/// Waits for a child to end and reaps it. Returns its wait status, or nothing if the child
/// still runs after `patience`.
std::optional<int> reap(pid_t child, std::chrono::milliseconds patience = kPatience);

/// Makes this process the parent of every orphan below it, so that a daemon that has put
/// itself into the background can be reaped.
void adoptOrphans();

/// The numbers of the children of this process whose program name is `program` (the last
/// component of its path), in ascending order. Children that have ended are included.
std::vector<pid_t> childrenRunning(const std::string& program);

}  // namespace support
