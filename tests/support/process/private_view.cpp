#include "tests/support/process/private_view.h"

#include <net/if.h>
#include <sched.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <random>
#include <stdexcept>
#include <system_error>
#include <vector>

#include "lib/os/descriptor.h"
#include "tests/support/process/child_process.h"

namespace support {
namespace {

void bringUpLoopback() {
    const zolt_os::Descriptor socket(::socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0));
    ifreq request{};
    std::strncpy(request.ifr_name, "lo", IFNAMSIZ - 1);
    if (::ioctl(socket.get(), SIOCGIFFLAGS, &request) != 0) {
        throw std::system_error(errno, std::generic_category(), "state of the loopback interface");
    }
    if ((request.ifr_flags & IFF_UP) != 0) return;
    request.ifr_flags = static_cast<short>(request.ifr_flags | IFF_UP);
    if (::ioctl(socket.get(), SIOCSIFFLAGS, &request) != 0) {
        throw std::system_error(errno, std::generic_category(), "bring up the loopback interface");
    }
}

// The daemon gives up on an answer after a number of attempts to read it, not after a time.
// On one processor the daemon makes no attempt while the simulated bus runs. On several
// processors of a busy machine the attempts could run out while the bus still waits for
// its turn.
void keepToOneProcessor() {
    cpu_set_t allowed;
    CPU_ZERO(&allowed);
    if (::sched_getaffinity(0, sizeof allowed, &allowed) != 0) return;
    std::vector<int> processors;
    for (int i = 0; i < CPU_SETSIZE; ++i) {
        if (CPU_ISSET(i, &allowed)) processors.push_back(i);
    }
    if (processors.empty()) return;
    cpu_set_t one;
    CPU_ZERO(&one);
    CPU_SET(processors[std::random_device()() % processors.size()], &one);
    ::sched_setaffinity(0, sizeof one, &one);
}

// A system may share its processors out by sessions. Each daemon starts a session and so has
// a share of its own. Without sessions of their own all tests, with their simulated buses,
// would have one share together: a dozen daemons would wait for buses that get a thirteenth
// of the machine. The call fails for the leader of a session, which needs no new one.
void startSession() {
    ::setsid();
}

}  // namespace

bool inPrivateView() {
    return std::filesystem::exists("/run/private-view");
}

void enterTestBed() {
    if (!inPrivateView()) {
        throw std::runtime_error(
            "this test writes below /etc, /run and /dev: start it by "
            "'tools/private-view --isolate PROGRAM'");
    }
    startSession();
    bringUpLoopback();
    adoptOrphans();
    keepToOneProcessor();
    std::filesystem::remove_all(workFolder());
    std::filesystem::create_directories(workFolder());
}

std::filesystem::path workFolder() {
    return "/run/zolt-test";
}

}  // namespace support
