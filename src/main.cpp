#include <fcntl.h>
#include <unistd.h>

#include <atomic>
#include <csignal>
#include <cstdlib>
#include <fstream>
#include <iostream>

#include "common/text.h"
#include "control/zolt.h"

namespace {

constexpr const char* kPidFile = "/var/run/zolt/zolt.pid";

/// ZOLT::kNoSignal, or the number of the last signal received.
int* pSignalFlag = nullptr;

static_assert(std::atomic_ref<int>::is_always_lock_free, "a signal handler stores into it");

void SIGhandler(int signal) {
    std::atomic_ref<int>(*pSignalFlag).store(signal);
}

/// Gives each standard stream that was closed the null device. Without that, a socket or
/// the card bus would take its number and get what the daemon prints.
void keepStandardNumbers() {
    int file = 0;
    do {
        file = open("/dev/null", O_RDWR);
    } while (file >= 0 && file <= STDERR_FILENO);
    if (file >= 0) {
        close(file);
    }
}

}  // namespace

int main() {
    const pid_t child = fork();
    if (child != 0) {
        // The parent ends at once and does not wait for the child.
        std::exit(child < 0 ? 1 : 0);
    }
    setsid();
    keepStandardNumbers();

    std::ofstream pidFile(kPidFile, std::ios::trunc);
    if (!pidFile) {
        std::cout << "Couldn't open pid file." << std::endl;
        return 1;
    }
    pidFile << ITOA(getpid());
    pidFile.close();

    pSignalFlag = new int(ZOLT::kNoSignal);
    std::signal(SIGINT, SIGhandler);
    std::signal(SIGTERM, SIGhandler);
    // A client that is gone, or a closed standard output, is no reason to end.
    std::signal(SIGPIPE, SIG_IGN);

    ZOLT zolt(LOGGER(), pSignalFlag);
    if (!zolt.InitProgramData()) {
        std::exit(0);
    }
    zolt.InitInterfaces();
    zolt.MasterThread();
    // A return would destroy the daemon while its workers still use it. The end of the
    // process releases them, the sockets and the port.
    std::exit(0);
}
