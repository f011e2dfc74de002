#pragma once

#include <cstdint>
#include <string>

namespace zolt_check {

/// The TCP port that an interface with this Port setting binds: the low 16 bits. 0 lets
/// the system pick a port.
std::uint16_t boundPort(std::int32_t port);

/// The text of a warning about a Port that the daemon accepts; empty if there is nothing
/// to warn of. `typed` is the value in the file, `port` the number that the daemon reads.
std::string portSurprise(const std::string& typed, std::int32_t port);

}  // namespace zolt_check
