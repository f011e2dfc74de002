#include "tests/zoltctl/zoltctl_process.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/resource.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <filesystem>
#include <system_error>

#include "tests/support/files.h"
#include "tests/support/process/child_process.h"
#include "tests/support/process/private_view.h"

namespace ctl_test {
namespace {

constexpr std::array kVariables{"ZOLT_HOST",   "ZOLT_CAE_PORT", "ZOLT_IO_PORT", "ZOLT_MON_PORT",
                                "ZOLT_CONFIG", "ZOLT_LINE_END", "ZOLT_TIMEOUT", "LINES",
                                "COLUMNS",     "INPUTRC",       "EDITRC"};

std::vector<std::string> commandLine(const std::vector<std::string>& arguments,
                                     const Surroundings& surroundings) {
    std::vector<std::string> command{"/usr/bin/env"};
    for (const char* name : kVariables) {
        command.push_back("--unset=" + std::string(name));
    }
    command.insert(command.end(), {"TZ=UTC", "LC_ALL=C.UTF-8", "TERM=vt100",
                                   "HOME=" + ZoltctlProcess::homeFolder()});
    command = joined(std::move(command), surroundings.environment);
    // Its own session, so that what is typed at the terminal reaches it alone.
    if (surroundings.terminal) {
        command.insert(command.begin(), {"/usr/bin/setsid", "--ctty"});
    }
    command.push_back(ZoltctlProcess::program());
    return joined(std::move(command), arguments);
}

zolt_os::Descriptor openFile(const std::string& path, int mode) {
    zolt_os::Descriptor file(::open(path.c_str(), mode | O_CLOEXEC, 0600));
    if (!file.valid()) throw std::system_error(errno, std::generic_category(), path);
    return file;
}

}  // namespace

std::string ZoltctlProcess::program() {
    return ZOLTCTL_PROGRAM;
}

std::string ZoltctlProcess::homeFolder() {
    return support::workFolder() / "home";
}

ZoltctlProcess::ZoltctlProcess(const std::vector<std::string>& arguments,
                               const Surroundings& surroundings) {
    static int started = 0;
    const std::string name = support::workFolder() / ("zoltctl." + std::to_string(++started));
    std::filesystem::create_directories(homeFolder());
    errorFile_ = name + ".errors";
    const auto errors = openFile(errorFile_, O_WRONLY | O_CREAT | O_TRUNC);
    support::writeFile(name + ".input", surroundings.input);
    const auto input = openFile(name + ".input", O_RDONLY);

    std::array<int, 2> ends{};
    if (::pipe2(ends.data(), O_CLOEXEC) != 0) {
        throw std::system_error(errno, std::generic_category(), "pipe");
    }
    output_.reset(ends[0]);
    const zolt_os::Descriptor writeEnd(ends[1]);
    ::fcntl(output_.get(), F_SETFL, O_NONBLOCK);

    support::StandardStreams streams;
    streams.input = surroundings.terminal.value_or(input.get());
    streams.output = surroundings.output.value_or(surroundings.terminal.value_or(writeEnd.get()));
    streams.error = surroundings.terminal.value_or(errors.get());
    process_ = support::spawn(commandLine(arguments, surroundings), streams);
}

ZoltctlProcess::~ZoltctlProcess() {
    if (!running()) return;
    ::kill(process_, SIGKILL);
    support::reap(process_);
}

std::string ZoltctlProcess::readNewOutput() {
    std::string bytes;
    std::array<char, 65536> buffer{};
    while (output_.valid()) {
        const auto count = ::read(output_.get(), buffer.data(), buffer.size());
        if (count <= 0) break;
        bytes.append(buffer.data(), static_cast<std::size_t>(count));
    }
    return bytes;
}

void ZoltctlProcess::signal(int number) const {
    ::kill(process_, number);
}

bool ZoltctlProcess::running() {
    if (endStatus_) return false;
    endStatus_ = support::reap(process_, std::chrono::milliseconds(0));
    return !endStatus_;
}

bool ZoltctlProcess::hasStarted() const {
    return support::readFile("/proc/" + std::to_string(process_) + "/comm") == "zoltctl\n";
}

Outcome ZoltctlProcess::waitForEnd(std::chrono::milliseconds patience) {
    Outcome outcome;
    const bool ended = support::waitUntil(
        [&] {
            const bool gone = !running();
            outcome.output += readNewOutput();
            return gone;
        },
        patience);
    outcome.end = ended ? support::describeWaitStatus(*endStatus_) : "still running";
    outcome.errors = support::readFile(errorFile_);
    return outcome;
}

Outcome run(const std::vector<std::string>& arguments, const Surroundings& surroundings) {
    return ZoltctlProcess(arguments, surroundings).waitForEnd();
}

long largestChildKilobytes() {
    rusage usage{};
    ::getrusage(RUSAGE_CHILDREN, &usage);
    return usage.ru_maxrss;
}

std::vector<std::string> joined(std::vector<std::string> first,
                                const std::vector<std::string>& second) {
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

}  // namespace ctl_test
