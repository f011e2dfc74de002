#pragma once

#include <string>

#include "bench/report/report.h"
#include "bench/system/contestants/child_program.h"
#include "tests/support/tcp/tcp_client.h"

namespace bench {

inline constexpr const char* kGatewayProgram = "/usr/sbin/ser2net";

/// ser2net in front of the adapter, with one client: tuned for short delays, or as
/// Debian's configuration sets it up.
class Gateway {
  public:
    Gateway(Role role, const Placement& placement);

    /// What is sent goes to the bus as it is, and the other way round.
    support::TcpClient& client() { return client_; }
    pid_t number() const { return program_.number(); }

  private:
    ChildProgram program_;
    support::TcpClient client_;
};

}  // namespace bench
