#include "tests/support/process/sim_process.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/socket.h>
#include <sys/un.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <stdexcept>

#include "tests/support/process/child_process.h"
#include "tests/support/process/private_view.h"

namespace support {
namespace {

std::filesystem::path controlPath() {
    return workFolder() / "sim.control";
}

}  // namespace

std::string SimProcess::defaultProgram() {
    return ZOLT_SIM_PROGRAM;
}

std::string shippedBus(const std::string& name) {
    const auto path = std::filesystem::path(ZOLT_SIM_BUSES) / (name + ".bus");
    if (!std::filesystem::exists(path)) throw std::runtime_error("no bus file " + path.string());
    return readFile(path);
}

SimProcess::SimProcess(const Options& options)
    : traceFile_(workFolder() / "sim.trace"),
      errorFile_(workFolder() / "sim.errors"),
      trace_(traceFile_) {
    const auto busFile = workFolder() / "sim.bus";
    writeFile(busFile, options.bus);
    std::filesystem::remove(traceFile_);
    const zolt_os::Descriptor errors = createOutputFile(errorFile_);
    StandardStreams streams;
    streams.error = errors.get();
    std::vector<std::string> command{options.program,
                                     "--bus",
                                     busFile,
                                     "--link",
                                     options.link,
                                     "--baud",
                                     std::to_string(options.baud),
                                     "--control",
                                     controlPath(),
                                     "--trace",
                                     "none"};
    if (options.traced) command.insert(command.end(), {"--trace-file", traceFile_});
    process_ = spawn(command, streams);
    const bool up = waitUntil([&] {
        connectControl();
        return control_.valid() && std::filesystem::exists(options.link);
    });
    if (!up) throw std::runtime_error("zolt-sim does not come up: " + stop());
}

SimProcess::~SimProcess() {
    if (process_ > 0) {
        ::kill(process_, SIGKILL);
        reap(process_);
    }
}

void SimProcess::connectControl() {
    if (control_.valid()) return;
    zolt_os::Descriptor socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    std::strncpy(address.sun_path, controlPath().c_str(), sizeof address.sun_path - 1);
    const auto* generic = reinterpret_cast<const sockaddr*>(&address);
    if (::connect(socket.get(), generic, sizeof address) == 0) control_ = std::move(socket);
}

std::vector<std::string> SimProcess::control(const std::string& line) {
    sendControl(line + "\n");
    return controlAnswer(line);
}

void SimProcess::controlAll(const std::vector<std::string>& lines) {
    std::string text;
    for (const auto& line : lines) text += line + "\n";
    sendControl(text);
    for (const auto& line : lines) controlAnswer(line);
}

void SimProcess::sendControl(const std::string& lines) {
    const auto sent = ::send(control_.get(), lines.data(), lines.size(), MSG_NOSIGNAL);
    if (sent != static_cast<ssize_t>(lines.size())) {
        throw std::runtime_error("zolt-sim does not take the control \"" + lines + "\"");
    }
}

std::vector<std::string> SimProcess::controlAnswer(const std::string& line) {
    std::vector<std::string> answer;
    const bool complete = waitUntil([&] {
        std::array<char, 4096> buffer{};
        const auto count = ::recv(control_.get(), buffer.data(), buffer.size(), MSG_DONTWAIT);
        if (count > 0) controlInput_.append(buffer.data(), static_cast<std::size_t>(count));
        for (auto end = controlInput_.find('\n'); end != std::string::npos;
             end = controlInput_.find('\n')) {
            answer.push_back(controlInput_.substr(0, end));
            controlInput_.erase(0, end + 1);
            if (answer.back() == "ok" || answer.back().starts_with("error: ")) return true;
        }
        return false;
    });
    if (!complete) throw std::runtime_error("zolt-sim does not answer \"" + line + "\"");
    if (answer.back() != "ok") throw std::runtime_error("\"" + line + "\": " + answer.back());
    answer.pop_back();
    return answer;
}

std::string SimProcess::traceTail(std::size_t lines) const {
    const auto all = splitLines(readFile(traceFile_));
    std::string tail;
    for (auto i = all.size() - std::min(lines, all.size()); i < all.size(); ++i) {
        tail += all[i] + "\n";
    }
    return tail;
}

std::string SimProcess::stop() {
    ::kill(process_, SIGTERM);
    const auto status = reap(process_);
    std::string problems = readFile(errorFile_);
    if (!status) return problems + "zolt-sim does not end on SIGTERM\n";
    process_ = -1;
    if (describeWaitStatus(*status) != "status 0") {
        problems += "zolt-sim ended with " + describeWaitStatus(*status) + "\n";
    }
    return problems;
}

}  // namespace support
