// Bringing a command to the daemon over the IO port, which answers nothing.
#pragma once

#include <string>

#include "apps/zoltctl/command_line/settings.h"

namespace ctl {

/// For a daemon whose own is not known: right for each that is or ends with a
/// line feed, except that the carriage return stays at the end of an LCD text.
constexpr const char* kSafeLineEnd = "\r\n";

/// Connects, sends the line as one packet and returns when the daemon has read
/// it. Throws Failure.
void deliverToIo(const Endpoint& endpoint, const std::string& line, const std::string& lineEnd,
                 Seconds timeout);

}  // namespace ctl
