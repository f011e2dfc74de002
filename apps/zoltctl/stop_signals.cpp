#include "apps/zoltctl/stop_signals.h"

#include <sys/signalfd.h>

#include <csignal>

namespace zoltctl {
namespace {

/// The signals to wait for. A blocked signal is delivered to signalfd even if it is
/// ignored, so ignored signals are left out.
sigset_t stopSet() {
    sigset_t set;
    ::sigemptyset(&set);
    for (const int number : {SIGINT, SIGTERM}) {
        struct sigaction action {};
        ::sigaction(number, nullptr, &action);
        if (action.sa_handler != SIG_IGN) {
            ::sigaddset(&set, number);
        }
    }
    return set;
}

void unblock() {
    const sigset_t set = stopSet();
    ::pthread_sigmask(SIG_UNBLOCK, &set, nullptr);
}

}  // namespace

StopSignals::StopSignals() {
    const sigset_t set = stopSet();
    ::pthread_sigmask(SIG_BLOCK, &set, nullptr);
    signals_ = zolt_os::checked(::signalfd(-1, &set, SFD_CLOEXEC | SFD_NONBLOCK), "signalfd");
}

StopSignals::~StopSignals() {
    unblock();
}

Status StopSignals::take() {
    signalfd_siginfo info{};
    const ssize_t size = ::read(signals_.get(), &info, sizeof info);
    unblock();
    const bool terminated = size == static_cast<ssize_t>(sizeof info) && info.ssi_signo == SIGTERM;
    return terminated ? Status::kTerminated : Status::kInterrupted;
}

}  // namespace zoltctl
