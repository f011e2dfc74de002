#include "apps/zolt-sim/control/control_socket.h"

#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <utility>

#include "apps/zolt-sim/error.h"
#include "lib/os/descriptor.h"

namespace zolt_sim {
namespace {

constexpr int kBacklog = 16;

zolt_os::Descriptor newSocket() {
    return zolt_os::checked(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0),
                            "socket");
}

/// Removes a socket file whose program has ended without removing it.
void makeRoom(const std::string& path, const sockaddr* address, socklen_t length) {
    struct stat status {};
    if (::lstat(path.c_str(), &status) != 0) {
        return;
    }
    if (!S_ISSOCK(status.st_mode)) {
        throw Error(path + ": exists and is not a socket, so it is left as it is");
    }
    const zolt_os::Descriptor probe = newSocket();
    if (::connect(probe.get(), address, length) == 0 || errno != ECONNREFUSED) {
        throw Error(path + ": in use by another program");
    }
    ::unlink(path.c_str());
}

}  // namespace

ControlSocket::ControlSocket(std::string path) : path_(std::move(path)), socket_(newSocket()) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (path_.size() >= sizeof address.sun_path) {
        throw Error(path_ + ": too long for a socket, at most " +
                    std::to_string(sizeof address.sun_path - 1) + " characters");
    }
    std::copy(path_.begin(), path_.end(), address.sun_path);
    const auto* plain = reinterpret_cast<const sockaddr*>(&address);
    makeRoom(path_, plain, sizeof address);
    if (::bind(socket_.get(), plain, sizeof address) != 0) {
        throw Error(path_ + ": " + std::strerror(errno));
    }
    if (::listen(socket_.get(), kBacklog) != 0) {
        const std::string reason = std::strerror(errno);
        ::unlink(path_.c_str());
        throw Error(path_ + ": " + reason);
    }
}

ControlSocket::~ControlSocket() {
    ::unlink(path_.c_str());
}

zolt_os::Descriptor ControlSocket::accept() {
    return zolt_os::Descriptor(
        ::accept4(socket_.get(), nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK));
}

}  // namespace zolt_sim
