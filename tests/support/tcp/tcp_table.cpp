#include "tests/support/tcp/tcp_table.h"

#include <netinet/in.h>
#include <sys/socket.h>

#include <array>
#include <cstdint>
#include <cstdio>
#include <fstream>
#include <sstream>
#include <string>

namespace support {
namespace {

using AddressOf = int (*)(int, sockaddr*, socklen_t*);

// The end of the line of an address in the kernel's table; empty if there is no address.
std::string portIn(int socket, AddressOf addressOf) {
    sockaddr_in address{};
    socklen_t size = sizeof address;
    if (addressOf(socket, reinterpret_cast<sockaddr*>(&address), &size) != 0) return {};
    std::array<char, 8> text{};
    std::snprintf(text.data(), text.size(), ":%04X", ntohs(address.sin_port));
    return text.data();
}

}  // namespace

bool peerHasReadAll(int socket) {
    constexpr const char* kNone = "00000000";
    const std::string self = portIn(socket, &::getsockname);
    const std::string peer = portIn(socket, &::getpeername);
    if (self.empty() || peer.empty()) return true;

    // Columns: number, local address, remote address, state, and the bytes that
    // wait for acknowledgement and for reading as "tx:rx". Nothing may wait for
    // acknowledgement at this end and nothing for reading at the other.
    std::ifstream table("/proc/net/tcp");
    std::string line;
    while (std::getline(table, line)) {
        std::istringstream columns(line);
        std::string number, local, remote, state, queues;
        columns >> number >> local >> remote >> state >> queues;
        const auto colon = queues.find(':');
        if (colon == std::string::npos) continue;
        const bool ownEnd = local.ends_with(self) && remote.ends_with(peer);
        const bool otherEnd = local.ends_with(peer) && remote.ends_with(self);
        if (ownEnd && queues.substr(0, colon) != kNone) return false;
        if (otherEnd && queues.substr(colon + 1) != kNone) return false;
    }
    return true;
}

}  // namespace support
