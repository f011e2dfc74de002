#pragma once

#include <sys/types.h>

#include <chrono>
#include <optional>
#include <string>
#include <vector>

#include "lib/os/descriptor.h"
#include "tests/support/wait.h"

namespace ctl_test {

/// What `version` prints of this daemon.
inline constexpr const char* kVersionText = "driver version 1.20\n";

/// What a finished zoltctl has left: how it ended ("status 0", "signal 9") and
/// both of its outputs.
struct Outcome {
    std::string end;
    std::string output;
    std::string errors;
};

/// How zoltctl is started, besides its arguments.
struct Surroundings {
    /// "NAME=VALUE", above an environment without any ZOLT_ variable, in UTC and
    /// with a home folder of its own.
    std::vector<std::string> environment = {};
    /// What it reads on standard input, then the end of it.
    std::string input = {};
    /// A descriptor of the caller's for standard output, instead of a pipe.
    std::optional<int> output = std::nullopt;
    /// A descriptor of the caller's for all three streams, its controlling terminal.
    std::optional<int> terminal = std::nullopt;
};

/// One running zoltctl of the same build. Used from one thread.
class ZoltctlProcess {
  public:
    explicit ZoltctlProcess(const std::vector<std::string>& arguments,
                            const Surroundings& surroundings = {});
    /// Kills what is left of it.
    ~ZoltctlProcess();
    ZoltctlProcess(const ZoltctlProcess&) = delete;
    ZoltctlProcess& operator=(const ZoltctlProcess&) = delete;

    /// What has come on standard output since the last call.
    std::string readNewOutput();
    /// Closes the reading end of its standard output.
    void closeOutput() { output_.reset(); }
    void signal(int number) const;
    bool running();
    /// The program itself runs, and not the one that has started it.
    bool hasStarted() const;
    /// Its end, with the output that readNewOutput has not fetched; "still
    /// running" when it does not end within `patience`.
    Outcome waitForEnd(std::chrono::milliseconds patience = kEndPatience);

    /// A command may have to wait for a port to open and for its answers.
    static constexpr std::chrono::seconds kEndPatience{40};
    static std::string program();
    static std::string homeFolder();

  private:
    pid_t process_ = -1;
    std::optional<int> endStatus_;
    zolt_os::Descriptor output_;
    std::string errorFile_;
};

/// Runs zoltctl to its end.
Outcome run(const std::vector<std::string>& arguments, const Surroundings& surroundings = {});

/// The most memory that any process started so far has had.
long largestChildKilobytes();

/// The two lists, one after the other.
std::vector<std::string> joined(std::vector<std::string> first,
                                const std::vector<std::string>& second);

}  // namespace ctl_test
