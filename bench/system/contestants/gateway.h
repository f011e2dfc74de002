#pragma once

#include <string>

#include "bench/report/report.h"
#include "bench/system/contestants/child_program.h"
#include "tests/support/tcp/tcp_client.h"

namespace bench {

inline constexpr const char* kGatewayProgram = "/usr/sbin/ser2net";

/// ser2net between the adapter and one client: tuned for short delays, or with the settings
/// of Debian's configuration.
class Gateway {
  public:
    Gateway(Role role, const Placement& placement);

    /// The gateway carries bytes unchanged in both directions.
    support::TcpClient& client() { return client_; }
    pid_t number() const { return program_.number(); }

  private:
    ChildProgram program_;
    support::TcpClient client_;
};

}  // namespace bench
