#pragma once

#include <string>

namespace zolt_ports {

/// The line with its end, to be sent in one piece. Throws PortError if the daemon would
/// not take it as one line: it reads at most 255 bytes at once and loses the bytes after
/// a 0 byte.
std::string packetOf(const std::string& line, const std::string& end);

}  // namespace zolt_ports
