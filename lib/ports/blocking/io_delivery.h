#pragma once

#include <string>

#include "lib/os/deadline.h"
#include "lib/ports/endpoint.h"

namespace zolt_ports {

/// The line end to use if the daemon's InpSeparator is not known. It works for CR LF and
/// for LF, where an LCD text then ends in a carriage return.
constexpr const char* kSafeLineEnd = "\r\n";

/// Connects to the IO port, which answers nothing, sends the line as one packet and
/// returns when the daemon has read it. Throws PortError.
void deliverToIo(const Endpoint& endpoint, const std::string& line, const std::string& lineEnd,
                 zolt_os::Seconds timeout);

}  // namespace zolt_ports
