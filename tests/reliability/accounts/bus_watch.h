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

/// The daemon serves the cards within this time after the adapter has returned, on a machine
/// that gives the daemon a processor. Other adapters take more time: the daemon asks each
/// one that comes before the right one, and waits for an answer.
inline constexpr std::chrono::seconds kPromisedReturn{5};

/// A simulated card bus in this process that counts what happens on it. Any thread may call
/// the functions, but setObserver(), control(), plug() and unplug() only one.
class BusWatch {
  public:
    /// Times from a return of the adapter to the first request for a card.
    struct Returns {
        std::chrono::milliseconds longest{0};
        std::size_t measured = 0;
        /// The returns that took more than kPromisedReturn.
        std::size_t slow = 0;
    };
    struct Counts {
        std::size_t polls = 0;
        /// How often the link was found and then lost again, for any reason.
        std::size_t losses = 0;
        /// Requests that the daemon may have sent although the bus has not seen them.
        std::size_t perhapsUnseen = 0;
        /// How often the daemon served the cards again after a loss.
        std::size_t recoveries = 0;
        /// Only returns that nothing has disturbed.
        Returns returnsAlone;
        Returns returnsAmongStrangers;
    };

    /// Plugs the bus in under `link`, with the cards of `busText` (as in a bus file). The
    /// bus answers without delay.
    BusWatch(const std::string& busText, const std::string& link);

    /// From now on `observer` is called with every control line that is carried out.
    void setObserver(std::function<void(const std::string&)> observer) {
        observer_ = std::move(observer);
    }

    /// Carries out a control line of the simulated bus. Throws std::runtime_error if the
    /// line is refused.
    void control(const std::string& line);
    void unplug();
    /// `strangers` says whether other adapters are plugged in.
    void plug(const std::string& link, bool strangers = false);
    /// Reports that another adapter has been plugged in.
    void strangerCame();
    bool plugged() const { return plugged_; }
    /// Reports that the current return is disturbed and must not be measured.
    void dropMeasurement();

    /// The output requests that the cards got since the last call, in hexadecimal:
    /// "10 05 02 FF FB".
    std::vector<std::string> takeOutputs();
    Counts counts() const;
    std::size_t pollsOf(unsigned address) const;

  private:
    void onLine(std::string_view line);
    void onHostFrame(std::string_view payload);
    void loseLink();

    mutable std::mutex lock_;  // guards the members up to amongStrangers_
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
    zolt_sim::SimulatedBus bus_;  // the last member, since its thread calls onLine()
};

}  // namespace reliability
