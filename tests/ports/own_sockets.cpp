#include "tests/ports/own_sockets.h"

#include <poll.h>
#include <sys/socket.h>

#include <filesystem>
#include <string>
#include <vector>

#include "tests/support/wait.h"

namespace own_sockets {
namespace {

std::vector<int> numbers() {
    std::vector<int> result;
    for (const auto& entry : std::filesystem::directory_iterator("/proc/self/fd")) {
        result.push_back(std::stoi(entry.path().filename()));
    }
    return result;
}

}  // namespace

int listening() {
    for (const int number : numbers()) {
        if (option(number, SOL_SOCKET, SO_ACCEPTCONN) == 1) return number;
    }
    return -1;
}

std::uint16_t listeningPort() {
    const int socket = listening();
    return socket == -1 ? std::uint16_t{0} : ntohs(local(socket).sin_port);
}

int accepted(std::uint16_t port) {
    for (const int number : numbers()) {
        if (ntohs(local(number).sin_port) == port &&
            option(number, SOL_SOCKET, SO_ACCEPTCONN) == 0) {
            return number;
        }
    }
    return -1;
}

sockaddr_in local(int socket) {
    sockaddr_in address{};
    socklen_t size = sizeof address;
    ::getsockname(socket, reinterpret_cast<sockaddr*>(&address), &size);
    return address;
}

sockaddr_in peer(int socket) {
    sockaddr_in address{};
    socklen_t size = sizeof address;
    ::getpeername(socket, reinterpret_cast<sockaddr*>(&address), &size);
    return address;
}

int option(int socket, int level, int name) {
    int value = -1;
    socklen_t size = sizeof value;
    ::getsockopt(socket, level, name, &value, &size);
    return value;
}

void shrinkSendBuffer(int socket) {
    const int size = 4096;
    ::setsockopt(socket, SOL_SOCKET, SO_SNDBUF, &size, sizeof size);
}

bool readable(int socket) {
    pollfd entry{socket, POLLIN, 0};
    const std::chrono::milliseconds patience = support::kPatience;
    return ::poll(&entry, 1, static_cast<int>(patience.count())) == 1;
}

int openDescriptors() {
    return static_cast<int>(numbers().size());
}

}  // namespace own_sockets
