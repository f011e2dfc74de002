#pragma once

#include <string>

namespace support {

/// A line of the daemon's log without its time stamp ("2024-02-29 23:59:58 "). A line that
/// does not begin with a proper time stamp is returned unchanged.
std::string withoutLogTime(const std::string& line);

/// A system log message "<13>Feb 29 23:59:58 program: text" without its time.
std::string withoutSystemLogTime(const std::string& message);

}  // namespace support
