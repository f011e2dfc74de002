#include "tests/ports/system_faults.h"

#include <sys/select.h>
#include <sys/socket.h>

#include <atomic>
#include <cerrno>
#include <utility>

namespace {

std::atomic<SystemFaults*> currentFaults{nullptr};

using Call = SystemFaults::Call;

}  // namespace

// The linker's names for the calls of the program and of the system.
extern "C" {
int __real_socket(int domain, int type, int protocol);
int __wrap_socket(int domain, int type, int protocol);
int __real_setsockopt(int fd, int level, int name, const void* value, socklen_t size);
int __wrap_setsockopt(int fd, int level, int name, const void* value, socklen_t size);
int __real_bind(int fd, const sockaddr* address, socklen_t size);
int __wrap_bind(int fd, const sockaddr* address, socklen_t size);
int __real_listen(int fd, int backlog);
int __wrap_listen(int fd, int backlog);
int __real_accept4(int fd, sockaddr* address, socklen_t* size, int flags);
int __wrap_accept4(int fd, sockaddr* address, socklen_t* size, int flags);
int __real_select(int count, fd_set* in, fd_set* out, fd_set* except, timeval* wait);
int __wrap_select(int count, fd_set* in, fd_set* out, fd_set* except, timeval* wait);

int __wrap_socket(int domain, int type, int protocol) {
    return SystemFaults::refused(Call::kSocket) ? -1 : __real_socket(domain, type, protocol);
}

int __wrap_setsockopt(int fd, int level, int name, const void* value, socklen_t size) {
    return SystemFaults::refused(Call::kSetsockopt)
               ? -1
               : __real_setsockopt(fd, level, name, value, size);
}

int __wrap_bind(int fd, const sockaddr* address, socklen_t size) {
    return SystemFaults::refused(Call::kBind) ? -1 : __real_bind(fd, address, size);
}

int __wrap_listen(int fd, int backlog) {
    return SystemFaults::refused(Call::kListen) ? -1 : __real_listen(fd, backlog);
}

int __wrap_accept4(int fd, sockaddr* address, socklen_t* size, int flags) {
    return SystemFaults::refused(Call::kAccept) ? -1 : __real_accept4(fd, address, size, flags);
}

int __wrap_select(int count, fd_set* in, fd_set* out, fd_set* except, timeval* wait) {
    return SystemFaults::refused(Call::kSelect) ? -1 : __real_select(count, in, out, except, wait);
}
}

SystemFaults::SystemFaults() {
    currentFaults = this;
}

SystemFaults::~SystemFaults() {
    currentFaults = nullptr;
}

void SystemFaults::fail(Call call, int error, int times) {
    const std::lock_guard guard(lock_);
    plans_[call].error = error;
    plans_[call].times = times;
}

void SystemFaults::beforeNext(Call call, std::function<void()> action) {
    const std::lock_guard guard(lock_);
    plans_[call].action = std::move(action);
}

bool SystemFaults::refused(Call call) {
    SystemFaults* faults = currentFaults;
    return faults != nullptr && faults->refuse(call);
}

bool SystemFaults::refuse(Call call) {
    std::function<void()> action;
    int error = 0;
    {
        const std::lock_guard guard(lock_);
        Plan& plan = plans_[call];
        action = std::exchange(plan.action, nullptr);
        if (plan.times > 0) {
            --plan.times;
            error = plan.error;
        }
    }
    if (action) action();
    errno = error;
    return error != 0;
}
