#pragma once

#include "apps/zoltctl/failure.h"
#include "lib/ports/port_error.h"

namespace zoltctl {

/// The exit status for an error at a port and its text, with the option that may help.
/// This is the only place that knows both sides.
Failure failureOf(const zolt_ports::PortError& error);

}  // namespace zoltctl
