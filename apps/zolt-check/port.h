#pragma once

#include <cstdint>
#include <string>

namespace check {

/// The port that an interface with this setting binds: its low 16 bits. 0 leaves
/// the choice to the system.
std::uint16_t boundPort(std::int32_t port);

/// What surprises in a port that the daemon accepts; empty when nothing does.
/// `typed` is the value in the file, `port` what the daemon reads.
std::string portSurprise(const std::string& typed, std::int32_t port);

}  // namespace check
