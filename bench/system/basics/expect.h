#pragma once

#include <string>

#include "bench/system/basics/clock.h"
#include "tests/support/tcp/tcp_client.h"

namespace bench {

/// The time after which anything counts as lost.
inline constexpr std::chrono::seconds kLost{10};

/// Waits until exactly `bytes` have come and returns that time. Throws Failure when other
/// bytes come, or none.
Time expect(support::TcpClient& client, const std::string& bytes);

}  // namespace bench
