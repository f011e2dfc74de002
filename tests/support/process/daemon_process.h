#pragma once

#include <sys/types.h>

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "tests/support/files.h"
#include "tests/support/process/child_process.h"

namespace support {

/// One run of the zolt program. Its files are the fixed ones of the private
/// view; its standard output and error go to files in the work folder. It must
/// run in the process that called enterTestBed, from one thread.
class DaemonProcess {
  public:
    explicit DaemonProcess(std::string program = defaultProgram()) : program_(std::move(program)) {}
    /// Kills what is left of it.
    ~DaemonProcess();
    DaemonProcess(const DaemonProcess&) = delete;
    DaemonProcess& operator=(const DaemonProcess&) = delete;

    /// How the process that was started ended ("status 0"): it leaves the daemon
    /// behind, whose end is another matter. Throws when it does not end. Standard
    /// output goes to a file, or to `output`: a descriptor of the caller's, or
    /// StandardStreams::kClosed.
    /// A daemon that has ended may be started again.
    std::string start(std::optional<int> output = std::nullopt);
    /// As above, with all its standard streams the caller's.
    std::string start(const StandardStreams& streams);
    /// The daemon's process number, found by its parentage and so independent of
    /// the PID file; -1 before start.
    pid_t number() const { return daemon_; }
    bool running();
    /// Sends a signal to the daemon.
    void signal(int number) const;
    /// How the daemon ended; "still running" when it has not after `patience`.
    std::string waitForEnd(std::chrono::milliseconds patience = kPatience);
    /// Ends it by SIGTERM and returns what is wrong with that: another status
    /// than 0, anything on standard error. Empty when all is well.
    std::string stop();

    std::string standardOutput() const;
    /// What the daemon and its sanitizers print as errors.
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
