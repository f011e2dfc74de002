// zolt-sim: the simulated card bus as a program.
#include <fcntl.h>
#include <sys/signalfd.h>
#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <exception>

#include "apps/zolt-sim/error.h"
#include "apps/zolt-sim/options.h"
#include "apps/zolt-sim/program.h"
#include "lib/os/descriptor.h"

namespace {

using zolt_sim::ExitStatus;

/// Opens the standard streams that are closed, so that a descriptor opened later does
/// not become one of them.
void openMissingStreams() {
    int descriptor = 0;
    do {
        descriptor = ::open("/dev/null", O_RDWR);
    } while (descriptor >= 0 && descriptor <= STDERR_FILENO);
    if (descriptor >= 0) {
        ::close(descriptor);
    }
}

/// A descriptor that becomes readable with a signal to end. An interrupt or a hang-up
/// that was ignored at the start stays ignored, as for a background job of a script.
zolt_os::Descriptor catchEndSignals() {
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGTTIN, SIG_IGN);
    sigset_t signals;
    ::sigemptyset(&signals);
    for (const int number : {SIGTERM, SIGINT, SIGHUP}) {
        struct sigaction action {};
        ::sigaction(number, nullptr, &action);
        if (number == SIGTERM || action.sa_handler != SIG_IGN) {
            ::sigaddset(&signals, number);
        }
    }
    ::pthread_sigmask(SIG_BLOCK, &signals, nullptr);
    return zolt_os::checked(::signalfd(-1, &signals, SFD_CLOEXEC | SFD_NONBLOCK), "signalfd");
}

ExitStatus run(int argc, char** argv) {
    const zolt_sim::Options options = zolt_sim::parseOptions({argv + 1, argv + argc});
    if (!options.text.empty()) {
        std::fputs(options.text.c_str(), stdout);
        return ExitStatus::kDone;
    }
    const zolt_os::Descriptor endSignals = catchEndSignals();
    zolt_sim::runProgram(options, {STDIN_FILENO, STDOUT_FILENO, endSignals.get()});
    return ExitStatus::kDone;
}

int failed(const char* message, ExitStatus status) {
    std::fprintf(stderr, "zolt-sim: %s\n", message);
    return static_cast<int>(status);
}

}  // namespace

int main(int argc, char** argv) {
    openMissingStreams();
    try {
        return static_cast<int>(run(argc, argv));
    } catch (const zolt_sim::Error& error) {
        return failed(error.what(), error.status());
    } catch (const std::exception& error) {
        // The system lacks memory, descriptors or threads.
        return failed(error.what(), ExitStatus::kCannotRun);
    }
}
