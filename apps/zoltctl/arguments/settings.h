#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>

#include "lib/os/deadline.h"
#include "lib/ports/endpoint.h"

namespace zoltctl {

/// What the command line and the environment give, as texts; nothing where they give
/// nothing.
struct GivenSettings {
    std::optional<std::string> host;
    std::optional<std::string> caePort;
    std::optional<std::string> ioPort;
    std::optional<std::string> monPort;
    std::optional<std::string> config;
    std::optional<std::string> lineEnd;
    std::optional<std::string> timeout;
};

/// Where the daemon is and how it separates lines.
struct Settings {
    std::array<zolt_ports::Endpoint, 3> endpoints;  ///< by Port
    zolt_os::Seconds timeout{20};
    bool json = false;
    bool check = true;
    /// A line for standard error before anything else; empty if there is none.
    std::string note;

    const zolt_ports::Endpoint& at(zolt_ports::Port port) const {
        return endpoints[static_cast<std::size_t>(port)];
    }
};

constexpr const char* kDefaultConfiguration = "/etc/zolt/zoltconf.xml";

/// Takes each setting from `given`, else from the daemon's configuration file, else from
/// the defaults. `defaultConfiguration` is read if no file is given, and may be missing.
/// Throws Failure.
Settings makeSettings(const GivenSettings& given,
                      const std::string& defaultConfiguration = kDefaultConfiguration);

}  // namespace zoltctl
