#include "bench/system/machine/neighbours.h"

#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include "bench/system/basics/failure.h"

namespace bench {
namespace {

[[noreturn]] void compute() {
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    ::setsid();
    volatile bool computing = true;
    while (computing) {
    }
    ::_exit(0);
}

}  // namespace

Neighbours::Neighbours(unsigned count) {
    for (unsigned i = 0; i < count; ++i) {
        const pid_t child = ::fork();
        if (child == 0) compute();
        if (child < 0) {
            end();
            throw Failure("the system refuses a busy process");
        }
        processes_.push_back(child);
    }
}

Neighbours::~Neighbours() {
    end();
}

void Neighbours::end() {
    for (const pid_t process : processes_) ::kill(process, SIGKILL);
    for (const pid_t process : processes_) ::waitpid(process, nullptr, 0);
}

}  // namespace bench
