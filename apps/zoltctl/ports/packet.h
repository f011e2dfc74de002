#pragma once

#include <string>

namespace ctl {

/// The line with its end, as one packet for the daemon. Throws Failure when the
/// daemon would not take it as one: it reads at most 255 bytes at once and loses
/// what stands behind a 0 byte.
std::string packetOf(const std::string& line, const std::string& end);

}  // namespace ctl
