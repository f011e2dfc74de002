#pragma once

#include <sys/socket.h>

#include <cstdint>
#include <string>
#include <vector>

#include "lib/os/deadline.h"

namespace zolt_ports {

struct Address {
    sockaddr_storage bytes{};
    socklen_t size = 0;
    int family = 0;

    /// True for an address of this machine's loopback interface.
    bool isLoopback() const;
};

/// The addresses of a host, in the system's order. Throws PortError if there is none, or
/// if the name service gives no answer before the deadline. A wait for the name service
/// cannot be interrupted.
std::vector<Address> resolve(const std::string& host, std::uint16_t port,
                             const zolt_os::Deadline& deadline);

}  // namespace zolt_ports
