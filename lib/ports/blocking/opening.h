#pragma once

#include <string>

#include "lib/os/deadline.h"
#include "lib/ports/blocking/connection.h"
#include "lib/ports/endpoint.h"

namespace zolt_ports {

/// A port whose banner has come.
struct OpenPort {
    Connection connection;
    /// The bytes before the banner: items that an earlier client has not read.
    std::string leftover;
    /// The bytes after the banner.
    std::string received;
};

/// Connects, as often as OpeningPlan says, and waits for the banner. `interrupt` is as in
/// Deadline. Throws PortError.
OpenPort openPort(const Endpoint& endpoint, zolt_os::Seconds timeout, int interrupt = -1);

}  // namespace zolt_ports
