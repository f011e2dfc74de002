#pragma once

#include <sys/types.h>

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "tests/support/files.h"
#include "tests/support/process/child_process.h"

namespace support {

/// One run of the zolt program. It uses the fixed files of the private view; its standard
/// output and standard error go to files in the work folder. REQUIRES: enterTestBed() was
/// called in this process, and one thread makes all calls.
class DaemonProcess {
  public:
    explicit DaemonProcess(std::string program = defaultProgram()) : program_(std::move(program)) {}
    /// Kills the daemon if it still runs.
    ~DaemonProcess();
    DaemonProcess(const DaemonProcess&) = delete;
    DaemonProcess& operator=(const DaemonProcess&) = delete;

    /// Starts the daemon and returns how the started process ended ("status 0"), which
    /// leaves the daemon in the background. Throws if that process does not end. Standard
    /// output goes to a file or to `output`: a descriptor of the caller, or
    /// StandardStreams::kClosed. A daemon that has ended may be started again.
    std::string start(std::optional<int> output = std::nullopt);
    /// The same with standard streams that all belong to the caller.
    std::string start(const StandardStreams& streams);
    /// The process number of the daemon; -1 before start(). It is found among the children
    /// of this process and does not depend on the PID file.
    pid_t number() const { return daemon_; }
    bool running();
    /// Sends a signal to the daemon.
    void signal(int number) const;
    /// How the daemon ended; "still running" if it has not ended after `patience`.
    std::string waitForEnd(std::chrono::milliseconds patience = kPatience);
    /// Ends the daemon by SIGTERM and returns what went wrong: another status than 0, or
    /// anything on standard error. Empty if all is well.
    std::string stop();

    std::string standardOutput() const;
    /// Everything that the daemon and its sanitizers have printed as errors.
    std::string standardError() const;

    /// The zolt program of the same build.
    static std::string defaultProgram();

  private:
    std::string program_;
    pid_t daemon_ = -1;
    std::optional<int> endStatus_;
};

/// Writes the configuration file.
void writeConfiguration(const std::string& xml);

/// The files of the last started daemon.
std::filesystem::path standardOutputFile();
std::filesystem::path standardErrorFile();

}  // namespace support
