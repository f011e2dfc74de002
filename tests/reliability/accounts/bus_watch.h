#pragma once

#include <array>
#include <chrono>
#include <cstddef>
#include <functional>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "apps/zolt-sim/simulated_bus.h"
#include "tests/support/wait.h"

namespace reliability {

/// The daemon serves so soon after the adapter's return, on a machine that gives
/// it a processor, when no other adapter is in its way. It asks each of those ahead
/// of the right one, and waits for an answer.
inline constexpr std::chrono::seconds kPromisedReturn{5};

/// A simulated card bus in this process that counts what happens on it. All
/// functions may be called from any thread; tell, control, plug and unplug from one.
class BusWatch {
  public:
    /// Of the adapter, to the first request for a card.
    struct Returns {
        std::chrono::milliseconds longest{0};
        std::size_t measured = 0;
        /// Those that took more than kPromisedReturn.
        std::size_t slow = 0;
    };
    struct Counts {
        std::size_t polls = 0;
        /// The link was found and then lost again, for whatever reason.
        std::size_t losses = 0;
        /// Requests that the daemon may have sent and the bus has not seen.
        std::size_t perhapsUnseen = 0;
        /// The daemon served the cards again after a loss.
        std::size_t recoveries = 0;
        /// Only of returns that nothing has disturbed.
        Returns returnsAlone;
        Returns returnsAmongStrangers;
    };

    /// Plugged in under `link`; `busText` as in a bus file. Answers at once.
    BusWatch(const std::string& busText, const std::string& link);

    /// Is told from now on which control lines are carried out.
    void tell(std::function<void(const std::string&)> observer) { observer_ = std::move(observer); }

    /// Carries out a control line of the simulated bus; throws
    /// std::runtime_error when it is refused.
    void control(const std::string& line);
    void unplug();
    /// `strangers`: whether other adapters are plugged in.
    void plug(const std::string& link, bool strangers = false);
    /// Another adapter has been plugged in.
    void strangerCame();
    bool plugged() const { return plugged_; }
    /// The return under way is disturbed and not to be measured.
    void dropMeasurement();

    /// The output requests since the last call as the cards got them, in
    /// hexadecimal: "10 05 02 FF FB".
    std::vector<std::string> takeOutputs();
    Counts counts() const;
    std::size_t pollsOf(unsigned address) const;

  private:
    void onLine(std::string_view line);
    void onHostFrame(std::string_view payload);
    void loseLink();

    mutable std::mutex lock_;  // all of the following
    Counts counts_;
    std::array<std::size_t, 16> polls_{};
    std::vector<std::string> outputs_;
    bool found_ = false;
    bool lastRequestAnswered_ = false;
    bool inService_ = false;
    bool everInService_ = false;
    std::optional<support::Clock::time_point> returned_;
    bool amongStrangers_ = false;

    std::function<void(const std::string&)> observer_;
    bool plugged_ = true;
    zolt_sim::SimulatedBus bus_;  // last: its thread calls onLine
};

}  // namespace reliability
