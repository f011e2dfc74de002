#include "tests/support/process/daemon_process.h"

#include <fcntl.h>
#include <signal.h>

#include <algorithm>
#include <stdexcept>

#include "lib/os/descriptor.h"
#include "tests/support/process/daemon_settings.h"
#include "tests/support/process/private_view.h"

namespace support {
namespace {

/// What each thread of a process that does not end is doing, for the report.
std::string threadStates(pid_t process) {
    std::string text;
    std::error_code gone;
    const std::filesystem::path tasks = "/proc/" + std::to_string(process) + "/task";
    for (const auto& task : std::filesystem::directory_iterator(tasks, gone)) {
        text += "  thread " + task.path().filename().string() + ": waits in " +
                readFile(task.path() / "wchan") + ", system call " +
                readFile(task.path() / "syscall");
    }
    return text;
}

}  // namespace

void writeConfiguration(const std::string& xml) {
    writeFile(kConfigurationFile, xml);
}

std::filesystem::path standardOutputFile() {
    return workFolder() / "zolt.output";
}
std::filesystem::path standardErrorFile() {
    return workFolder() / "zolt.errors";
}

std::string DaemonProcess::defaultProgram() {
    return ZOLT_PROGRAM;
}

DaemonProcess::~DaemonProcess() {
    if (!running()) return;
    ::kill(daemon_, SIGKILL);
    reap(daemon_);
}

std::string DaemonProcess::start(std::optional<int> output) {
    const zolt_os::Descriptor outputFile = createOutputFile(standardOutputFile());
    const zolt_os::Descriptor errors = createOutputFile(standardErrorFile());
    StandardStreams streams;
    streams.output = output.value_or(outputFile.get());
    streams.error = errors.get();
    return start(streams);
}

std::string DaemonProcess::start(const StandardStreams& streams) {
    const auto before = childrenRunning(program_);
    endStatus_.reset();
    const pid_t parent = spawn({program_}, streams);
    const auto status = reap(parent);
    if (!status) throw std::runtime_error("the started process does not end");
    // The end of its parent has made the daemon a child of this process, even if it has
    // already ended itself.
    for (const pid_t child : childrenRunning(program_)) {
        if (std::find(before.begin(), before.end(), child) == before.end()) daemon_ = child;
    }
    return describeWaitStatus(*status);
}

bool DaemonProcess::running() {
    if (daemon_ < 0 || endStatus_) return false;
    endStatus_ = reap(daemon_, std::chrono::milliseconds(0));
    return !endStatus_;
}

void DaemonProcess::signal(int number) const {
    if (daemon_ > 0) ::kill(daemon_, number);
}

std::string DaemonProcess::waitForEnd(std::chrono::milliseconds patience) {
    if (daemon_ < 0) return "never started";
    if (!endStatus_) endStatus_ = reap(daemon_, patience);
    return endStatus_ ? describeWaitStatus(*endStatus_) : "still running";
}

std::string DaemonProcess::stop() {
    if (running()) signal(SIGTERM);
    const std::string end = waitForEnd();
    std::string problems = standardError();
    if (end != "status 0") problems += "the daemon ended with " + end + "\n";
    if (!endStatus_) problems += threadStates(daemon_);
    return problems;
}

std::string DaemonProcess::standardOutput() const {
    return readFile(standardOutputFile());
}

std::string DaemonProcess::standardError() const {
    return readFile(standardErrorFile());
}

}  // namespace support
