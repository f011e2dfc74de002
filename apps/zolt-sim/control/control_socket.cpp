#include "apps/zolt-sim/control/control_socket.h"

#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <stdexcept>
#include <utility>

namespace sim {
namespace {

constexpr int kBacklog = 16;

Descriptor newSocket() {
    return checked(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0), "socket");
}

// Removes a socket file that its owner has left behind.
void makeRoom(const std::string& path, const sockaddr* address, socklen_t length) {
    struct stat status {};
    if (::lstat(path.c_str(), &status) != 0) {
        return;
    }
    if (!S_ISSOCK(status.st_mode)) {
        throw std::runtime_error(path + ": exists and is no socket, left as it is");
    }
    const Descriptor probe = newSocket();
    if (::connect(probe.get(), address, length) == 0 || errno != ECONNREFUSED) {
        throw std::runtime_error(path + ": in use by another program");
    }
    ::unlink(path.c_str());
}

}  // namespace

ControlSocket::ControlSocket(std::string path) : path_(std::move(path)), socket_(newSocket()) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (path_.size() >= sizeof address.sun_path) {
        throw std::runtime_error(path_ + ": too long for a socket, at most " +
                                 std::to_string(sizeof address.sun_path - 1) + " characters");
    }
    std::copy(path_.begin(), path_.end(), address.sun_path);
    const auto* plain = reinterpret_cast<const sockaddr*>(&address);
    makeRoom(path_, plain, sizeof address);
    if (::bind(socket_.get(), plain, sizeof address) != 0) {
        throw std::runtime_error(path_ + ": " + std::strerror(errno));
    }
    if (::listen(socket_.get(), kBacklog) != 0) {
        const std::string reason = std::strerror(errno);
        ::unlink(path_.c_str());
        throw std::runtime_error(path_ + ": " + reason);
    }
}

ControlSocket::~ControlSocket() {
    ::unlink(path_.c_str());
}

Descriptor ControlSocket::accept() {
    return Descriptor(::accept4(socket_.get(), nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK));
}

}  // namespace sim
