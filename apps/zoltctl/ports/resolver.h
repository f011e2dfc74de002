#pragma once

#include <sys/socket.h>

#include <cstdint>
#include <string>
#include <vector>

#include "apps/zoltctl/ports/deadline.h"

namespace ctl {

struct Address {
    sockaddr_storage bytes{};
    socklen_t size = 0;
    int family = 0;

    /// Of this machine's own loopback interface.
    bool isLoopback() const;
};

/// The addresses of a host, in the system's order. Throws Failure when there is
/// none, or when the name service gives no answer in time.
std::vector<Address> resolve(const std::string& host, std::uint16_t port, const Deadline& deadline);

}  // namespace ctl
