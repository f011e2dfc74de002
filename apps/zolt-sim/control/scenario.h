#pragma once

#include <chrono>
#include <functional>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "apps/zolt-sim/adapter/pause.h"
#include "lib/os/event.h"

namespace zolt_sim {

/// One line of a scenario, a file of timed controls that replays a demonstration or a
/// bug report.
struct ScenarioStep {
    /// Since the start of the bus.
    std::chrono::microseconds at{0};
    /// A control without mistakes.
    std::string control;
};

/// `fileName` appears only in messages. Throws Error with "FILE:LINE: REASON".
std::vector<ScenarioStep> parseScenario(std::string_view text, const std::string& fileName);

/// Plays the steps on a thread of its own. The destructor drops the steps that are left.
class ScenarioPlayer {
  public:
    /// `play` is called on that thread, with the control of each step.
    ScenarioPlayer(std::vector<ScenarioStep> steps, Clock::time_point start,
                   std::function<void(const std::string& control)> play);
    ~ScenarioPlayer();
    ScenarioPlayer(const ScenarioPlayer&) = delete;
    ScenarioPlayer& operator=(const ScenarioPlayer&) = delete;

  private:
    zolt_os::Event stop_;
    std::thread thread_;
};

}  // namespace zolt_sim
