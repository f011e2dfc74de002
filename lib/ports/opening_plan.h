#pragma once

#include <chrono>
#include <optional>

namespace zolt_ports {

/// The pause between two attempts to connect.
constexpr std::chrono::duration<double> kRetryPause{0.1};

/// Decides how long to keep trying to get in. The daemon refuses connections for seconds
/// after a client has left, accepts one seconds after it began to listen, and resets
/// those that waited while another client was served.
class OpeningPlan {
  public:
    using Clock = std::chrono::steady_clock;
    using Seconds = std::chrono::duration<double>;

    /// `timeout` limits the wait for the banner, counted from the first connection.
    explicit OpeningPlan(Seconds timeout) : timeout_(timeout) {}

    enum class Next {
        kRetry,     ///< connect again after kRetryPause
        kNoDaemon,  ///< give up: nothing listens there
        kHeld,      ///< give up: another client holds the port
    };
    /// The connection was refused.
    Next refused(Clock::time_point now);
    /// The connection ended before a byte came.
    Next turnedAway(Clock::time_point now) const;
    /// The connection is there; the banner is awaited next.
    void connected(Clock::time_point now);
    /// When connecting, or the wait for the banner, has to be over.
    Clock::time_point end(Clock::time_point now) const;

  private:
    static Clock::time_point after(Clock::time_point now, Seconds time);

    Seconds timeout_;
    std::optional<Clock::time_point> refusedEnd_;
    std::optional<Clock::time_point> bannerEnd_;
};

}  // namespace zolt_ports
