#include "tests/support/process/child_process.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <stdexcept>
#include <system_error>

#include "tests/support/files.h"

namespace support {
namespace {

// The kernel keeps this many characters of a program's name.
constexpr std::string::size_type kKernelNameLength = 15;

// From here to exec only async-signal-safe functions may be called.
void connectStream(int source, int target) {
    if (source == StandardStreams::kClosed) {
        ::close(target);
        return;
    }
    if (source == StandardStreams::kNull) source = ::open("/dev/null", O_RDWR | O_CLOEXEC);
    if (source == target) {
        ::fcntl(target, F_SETFD, 0);
    } else {
        ::dup2(source, target);
    }
}

[[noreturn]] void becomeProgram(char* const* arguments, const StandardStreams& streams) {
    for (int number = 1; number < NSIG; ++number) ::signal(number, SIG_DFL);
    sigset_t none;
    ::sigemptyset(&none);
    ::sigprocmask(SIG_SETMASK, &none, nullptr);
    connectStream(streams.input, STDIN_FILENO);
    connectStream(streams.output, STDOUT_FILENO);
    connectStream(streams.error, STDERR_FILENO);
    ::execv(arguments[0], arguments);
    ::_exit(127);
}

// Name and parent of a process, as /proc/NUMBER/stat gives them.
bool isChildRunning(const std::string& stat, const std::string& name, pid_t parent) {
    const auto open = stat.find('(');
    const auto close = stat.rfind(')');
    if (open == std::string::npos || close == std::string::npos) return false;
    if (stat.substr(open + 1, close - open - 1) != name) return false;
    // ") S PARENT ...": state, then the parent's number.
    return close + 4 < stat.size() && std::stol(stat.substr(close + 4)) == parent;
}

}  // namespace

zolt_os::Descriptor createOutputFile(const std::filesystem::path& path) {
    zolt_os::Descriptor file(
        ::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_APPEND | O_CLOEXEC, 0644));
    if (!file.valid()) throw std::runtime_error("cannot write " + path.string());
    return file;
}

std::string describeWaitStatus(int waitStatus) {
    if (WIFEXITED(waitStatus)) return "status " + std::to_string(WEXITSTATUS(waitStatus));
    if (WIFSIGNALED(waitStatus)) return "signal " + std::to_string(WTERMSIG(waitStatus));
    return "wait status " + std::to_string(waitStatus);
}

pid_t spawn(const std::vector<std::string>& command, const StandardStreams& streams) {
    std::vector<std::string> copies = command;
    std::vector<char*> arguments;
    for (auto& argument : copies) arguments.push_back(argument.data());
    arguments.push_back(nullptr);
    const pid_t child = ::fork();
    if (child < 0) throw std::system_error(errno, std::generic_category(), "fork");
    if (child == 0) becomeProgram(arguments.data(), streams);
    return child;
}

std::optional<int> reap(pid_t child, std::chrono::milliseconds patience) {
    int status = 0;
    pid_t result = 0;
    waitUntil(
        [&] {
            result = ::waitpid(child, &status, WNOHANG);
            return result != 0;
        },
        patience);
    if (result < 0) throw std::system_error(errno, std::generic_category(), "waitpid");
    if (result == 0) return std::nullopt;
    return status;
}

void adoptOrphans() {
    if (::prctl(PR_SET_CHILD_SUBREAPER, 1) != 0) {
        throw std::system_error(errno, std::generic_category(), "PR_SET_CHILD_SUBREAPER");
    }
}

std::vector<pid_t> childrenRunning(const std::string& program) {
    const std::string name =
        std::filesystem::path(program).filename().string().substr(0, kKernelNameLength);
    std::vector<pid_t> children;
    std::error_code ended;  // a process may end between listing and reading
    for (const auto& entry : std::filesystem::directory_iterator("/proc", ended)) {
        const std::string number = entry.path().filename();
        if (!std::all_of(number.begin(), number.end(),
                         [](char c) { return c >= '0' && c <= '9'; })) {
            continue;
        }
        if (isChildRunning(readFile(entry.path() / "stat"), name, ::getpid())) {
            children.push_back(static_cast<pid_t>(std::stol(number)));
        }
    }
    std::sort(children.begin(), children.end());
    return children;
}

}  // namespace support
