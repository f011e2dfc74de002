#include "lib/ports/blocking/connection.h"

#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <utility>

namespace zolt_ports {

using zolt_os::Clock;
using zolt_os::Deadline;
using zolt_os::Descriptor;
using zolt_os::Seconds;
using zolt_os::waitFor;

namespace {

struct SocketOption {
    int level;
    int name;
    int value;
};

/// A line is sent at once. A machine of the daemon that has vanished is noticed within
/// two minutes, also while nothing is asked of it.
constexpr std::array kSocketOptions{
    SocketOption{IPPROTO_TCP, TCP_NODELAY, 1},    SocketOption{SOL_SOCKET, SO_KEEPALIVE, 1},
    SocketOption{IPPROTO_TCP, TCP_KEEPIDLE, 60},   // seconds
    SocketOption{IPPROTO_TCP, TCP_KEEPINTVL, 15},  // seconds
    SocketOption{IPPROTO_TCP, TCP_KEEPCNT, 3},
};

/// Returns 0 or the error.
int connectOne(const Address& address, const Deadline& deadline, Descriptor& socket) {
    socket = Descriptor(::socket(address.family, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0));
    if (!socket.valid()) {
        return errno;
    }
    for (const SocketOption& option : kSocketOptions) {
        ::setsockopt(socket.get(), option.level, option.name, &option.value, sizeof option.value);
    }
    if (::connect(socket.get(), reinterpret_cast<const sockaddr*>(&address.bytes), address.size) ==
        0) {
        return 0;
    }
    if (errno != EINPROGRESS) {
        return errno;
    }
    if (!waitFor(socket.get(), POLLOUT, deadline)) {
        return ETIMEDOUT;
    }
    int error = 0;
    socklen_t size = sizeof error;
    ::getsockopt(socket.get(), SOL_SOCKET, SO_ERROR, &error, &size);
    return error;
}

}  // namespace

ConnectResult connectTo(const std::vector<Address>& addresses, const Deadline& deadline) {
    ConnectResult result;
    for (std::size_t i = 0; i < addresses.size(); ++i) {
        // An address that does not answer leaves time for the next ones.
        const auto left = std::max(deadline.end() - Clock::now(), Clock::duration::zero());
        const auto share = left / static_cast<Clock::rep>(addresses.size() - i);
        const Deadline turn(Clock::now() + share, deadline.interrupt());
        result.error = connectOne(addresses[i], turn, result.socket);
        if (result.error == 0) {
            return result;
        }
        result.refused = result.refused || result.error == ECONNREFUSED;
        result.queueFull =
            result.queueFull || (result.error == ETIMEDOUT && addresses[i].isLoopback());
    }
    result.socket.reset();
    return result;
}

Connection::Connection(Descriptor socket, std::string label)
    : socket_(std::move(socket)), label_(std::move(label)) {}

void Connection::send(std::string_view bytes, const Deadline& deadline) {
    while (!bytes.empty()) {
        const ssize_t count = ::send(socket_.get(), bytes.data(), bytes.size(), MSG_NOSIGNAL);
        if (count > 0) {
            bytes.remove_prefix(static_cast<std::size_t>(count));
        } else if (errno == EAGAIN) {
            if (!waitFor(socket_.get(), POLLOUT, deadline)) {
                throw timedOut("takes nothing");
            }
        } else if (errno != EINTR) {
            throw cut("before the line was sent");
        }
    }
}

Connection::Wait Connection::receiveNow(std::string& bytes) {
    for (;;) {
        std::array<char, 4096> buffer;
        const ssize_t count = ::recv(socket_.get(), buffer.data(), buffer.size(), 0);
        if (count > 0) {
            bytes.append(buffer.data(), static_cast<std::size_t>(count));
            return Wait::kBytes;
        }
        if (count < 0 && errno == EAGAIN) {
            return Wait::kTimeout;
        }
        if (count == 0 || errno != EINTR) {
            reset_ = count != 0;
            return Wait::kEnd;
        }
    }
}

Connection::Wait Connection::receive(std::string& bytes, const Deadline& deadline) {
    // The time is checked before the bytes, so a peer that never pauses is given up, too.
    while (Clock::now() < deadline.end()) {
        const Wait now = receiveNow(bytes);
        if (now != Wait::kTimeout) {
            return now;
        }
        if (!waitFor(socket_.get(), POLLIN, deadline)) {
            break;
        }
    }
    return Wait::kTimeout;
}

void Connection::halfClose() {
    ::shutdown(socket_.get(), SHUT_WR);
}

void Connection::leave() {
    constexpr Seconds kLeaveTime{2};
    const Deadline leaving = Deadline::in(kLeaveTime);
    halfClose();
    std::string ignored;
    while (receive(ignored, leaving) == Wait::kBytes) {
        ignored.clear();
    }
}

PortError Connection::cut(const std::string& when) const {
    return {Reason::kCut, label_ + ": the connection ended " + when};
}

PortError Connection::timedOut(const std::string& what) const {
    return {Reason::kTimeout, label_ + " " + what + " in time"};
}

}  // namespace zolt_ports
