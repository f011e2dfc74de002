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

/// -1 while running, else the number of the last signal received.
int* pSignalFlag = nullptr;

static_assert(std::atomic_ref<int>::is_always_lock_free, "a signal handler stores into it");

void SIGhandler(int signal) {
    std::atomic_ref<int>(*pSignalFlag).store(signal);
}

}  // namespace

int main() {
    const pid_t child = fork();
    if (child != 0) {
        // At once, whatever becomes of the child.
        std::exit(child < 0 ? 1 : 0);
    }
    setsid();

    std::ofstream pidFile(kPidFile, std::ios::trunc);
    if (!pidFile) {
        std::cout << "Couldn't open pid file." << std::endl;
        return 1;
    }
    pidFile << ITOA(getpid());
    pidFile.close();

    pSignalFlag = new int(-1);
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
    // Not a return: that would destroy the daemon under its workers. The end of
    // the process releases them, the sockets and the port.
    std::exit(0);
}
