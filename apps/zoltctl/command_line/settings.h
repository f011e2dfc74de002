// Where the daemon is and how it wants its lines: from options, environment,
// the local configuration and defaults, in this order.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>

#include "apps/zoltctl/ports/deadline.h"

namespace ctl {

enum class Port { kCae, kIo, kMon };

/// The name of a port for people.
const char* nameOf(Port port);

/// What the command line and the environment say, as texts; nothing where they
/// are silent.
struct GivenSettings {
    std::optional<std::string> host;
    std::array<std::optional<std::string>, 3> ports;  ///< by Port
    std::optional<std::string> config;
    std::optional<std::string> lineEnd;
    std::optional<std::string> timeout;
};

/// One of the daemon's three ports.
struct Endpoint {
    Port port = Port::kCae;
    std::string host;
    /// Nothing when the local configuration does not name it.
    std::optional<std::uint16_t> number;
    /// What ends a line that is sent; nothing when it has to be found out.
    std::optional<std::string> lineEnd;
    std::string outSeparator = "\r\n";

    /// "console 127.0.0.1:4001"
    std::string label() const;
};

struct Settings {
    std::array<Endpoint, 3> endpoints;  ///< by Port
    Seconds timeout{20};
    bool json = false;
    bool check = true;
    /// Worth a line on standard error before anything else; empty when not.
    std::string note;

    const Endpoint& at(Port port) const { return endpoints[static_cast<std::size_t>(port)]; }
};

constexpr const char* kDefaultConfiguration = "/etc/zolt/zoltconf.xml";

/// `defaultConfiguration` is read when none is given, and may be missing. Throws
/// Failure.
Settings makeSettings(const GivenSettings& given,
                      const std::string& defaultConfiguration = kDefaultConfiguration);

}  // namespace ctl
