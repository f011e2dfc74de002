#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "apps/zoltctl/arguments/settings.h"
#include "apps/zoltctl/output/line_format.h"

namespace zoltctl {

/// When listening ends by itself; never if both are nothing.
struct Limits {
    std::optional<zolt_os::Seconds> time;
    std::optional<unsigned> count;  ///< of lines, at least 1
};

/// Follows a port line by line until a limit is reached. It reads without a pause and
/// leaves the output to another thread, so that a slow reader of the output never makes
/// the daemon wait. `separators` end lines besides carriage return and line feed. Throws
/// Failure or zolt_ports::PortError for every other end.
void listenTo(const Settings& settings, zolt_ports::Port port,
              const std::vector<std::string>& separators, const Limits& limits,
              std::shared_ptr<LineFormat> format);

}  // namespace zoltctl
