// Getting in: the daemon refuses for seconds after a client has left, accepts
// seconds after it began to listen, and resets who waited behind a client.
#pragma once

#include <optional>
#include <string>

#include "apps/zoltctl/command_line/settings.h"
#include "apps/zoltctl/ports/connection.h"
#include "apps/zoltctl/ports/deadline.h"

namespace ctl {

/// How long a port that refuses may still be on its way back: some 4 seconds
/// after its client has left.
constexpr Seconds kRefusedWindow{6};

/// Decides how long to keep trying.
class OpeningPlan {
  public:
    explicit OpeningPlan(Seconds timeout) : timeout_(timeout) {}

    enum class Next { kRetry, kNoDaemon, kHeld };
    Next refused(Clock::time_point now);
    /// The connection ended before a byte had come.
    Next turnedAway(Clock::time_point now) const;
    void connected(Clock::time_point now);
    /// When connecting, or the wait for the banner, has to be over.
    Clock::time_point end(Clock::time_point now) const;

  private:
    Clock::time_point after(Clock::time_point now, Seconds time) const;

    Seconds timeout_;
    std::optional<Clock::time_point> refusedEnd_;
    std::optional<Clock::time_point> bannerEnd_;
};

/// A port past its banner.
struct OpenPort {
    Connection connection;
    /// What waited there for an earlier client.
    std::string leftover;
    /// What has already come behind the banner.
    std::string received;
};

/// Connects and waits for the banner. `interrupt` as in Deadline. Throws Failure.
OpenPort openPort(const Endpoint& endpoint, Seconds timeout, int interrupt = -1);

}  // namespace ctl
