// A file of timed controls, so that a demonstration or a bug report can be replayed.
#pragma once

#include <chrono>
#include <functional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "apps/zolt-sim/line/descriptor.h"
#include "apps/zolt-sim/line/pause.h"

namespace sim {

struct ScenarioStep {
    std::chrono::microseconds at{0};  // since the bus was started
    std::string control;              // already known to be written correctly
};

// what() is a complete message: "FILE:LINE: REASON".
class ScenarioError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

// `fileName` is only used in messages. Throws ScenarioError.
std::vector<ScenarioStep> parseScenario(std::string_view text, const std::string& fileName);

// Plays the steps on a thread of its own; the destructor leaves out the rest.
class ScenarioPlayer {
  public:
    ScenarioPlayer(std::vector<ScenarioStep> steps, Clock::time_point start,
                   std::function<void(const std::string& control)> play);
    ~ScenarioPlayer();
    ScenarioPlayer(const ScenarioPlayer&) = delete;
    ScenarioPlayer& operator=(const ScenarioPlayer&) = delete;

  private:
    StopEvent stop_;
    std::thread thread_;
};

}  // namespace sim
