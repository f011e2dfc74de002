#pragma once

#include <sys/types.h>

#include <filesystem>
#include <string>
#include <vector>

#include "lib/os/descriptor.h"
#include "tests/support/files.h"

namespace support {

/// A running simulated card bus (the program zolt-sim) with its control socket
/// and its full trace.
class SimProcess {
  public:
    struct Options {
        /// The bus description, as a bus file holds it.
        std::string bus;
        /// Name under which the daemon finds the adapter.
        std::filesystem::path link = "/dev/ttyUSB0";
        /// Speed of the wire; 0 answers at once.
        int baud = 0;
        std::string program = defaultProgram();
        /// Whether it writes the trace, which grows with every poll.
        bool traced = true;
    };

    /// Starts it and waits until the daemon could open it; throws
    /// std::runtime_error with what it printed when it does not come up.
    explicit SimProcess(const Options& options);
    /// Ends it.
    ~SimProcess();
    SimProcess(const SimProcess&) = delete;
    SimProcess& operator=(const SimProcess&) = delete;

    /// Runs one control line and returns the lines of its answer without the
    /// final "ok"; throws std::runtime_error when it is refused.
    std::vector<std::string> control(const std::string& line);
    /// Runs many control lines whose answers do not matter, in one go.
    void controlAll(const std::vector<std::string>& lines);

    /// The trace lines that have come since the last call.
    std::vector<std::string> readNewTrace() { return trace_.readNewLines(); }
    /// The last lines of the trace, for a report of a failure.
    std::string traceTail(std::size_t lines) const;

    /// Ends it as a user would and returns what is wrong with that: its exit
    /// status and all it printed as errors. Empty when all is well.
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

/// Text of a bus file that comes with the simulated bus, for example
/// "all-kinds".
std::string shippedBus(const std::string& name);

}  // namespace support
