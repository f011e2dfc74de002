#pragma once

#include <sys/types.h>

#include <filesystem>
#include <string>
#include <vector>

#include "lib/os/descriptor.h"
#include "tests/support/files.h"

namespace support {

/// A running zolt-sim, the simulated card bus, with its control socket and its full trace.
class SimProcess {
  public:
    struct Options {
        /// The content of the bus file.
        std::string bus;
        /// The name under which the daemon finds the adapter.
        std::filesystem::path link = "/dev/ttyUSB0";
        /// The speed of the wire; 0 answers without delay.
        int baud = 0;
        std::string program = defaultProgram();
        /// False turns the trace off, which grows with every poll.
        bool traced = true;
    };

    /// Starts zolt-sim and waits until a daemon could open its adapter. Throws
    /// std::runtime_error with the output of zolt-sim if that does not happen.
    explicit SimProcess(const Options& options);
    /// Ends zolt-sim.
    ~SimProcess();
    SimProcess(const SimProcess&) = delete;
    SimProcess& operator=(const SimProcess&) = delete;

    /// Runs one control line and returns the lines of the answer without the final "ok".
    /// Throws std::runtime_error if the line is refused.
    std::vector<std::string> control(const std::string& line);
    /// Runs many control lines at once; their answers are ignored.
    void controlAll(const std::vector<std::string>& lines);

    /// The lines of the trace since the last call.
    std::vector<std::string> readNewTrace() { return trace_.readNewLines(); }
    /// The last lines of the trace, for the report of a failure.
    std::string traceTail(std::size_t lines) const;

    /// Ends zolt-sim as a user would and returns what went wrong: its exit status and
    /// everything that it printed as errors. Empty if all is well.
    std::string stop();

    /// The zolt-sim of the same build.
    static std::string defaultProgram();

  private:
    void connectControl();
    void sendControl(const std::string& lines);
    std::vector<std::string> controlAnswer(const std::string& line);

    std::filesystem::path traceFile_;
    std::filesystem::path errorFile_;
    FileTail trace_;
    pid_t process_ = -1;
    zolt_os::Descriptor control_;
    std::string controlInput_;
};

/// The content of a bus file that is part of zolt-sim, for example "all-kinds".
std::string shippedBus(const std::string& name);

}  // namespace support
