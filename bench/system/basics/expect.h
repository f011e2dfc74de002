#pragma once

#include <string>

#include "bench/system/basics/clock.h"
#include "tests/support/tcp/tcp_client.h"

namespace bench {

/// How long anything may take before it counts as lost.
inline constexpr std::chrono::seconds kLost{10};

/// Waits until exactly `bytes` have come and returns when that was. Throws Failure
/// when others come, or nothing does.
Time expect(support::TcpClient& client, const std::string& bytes);

}  // namespace bench
