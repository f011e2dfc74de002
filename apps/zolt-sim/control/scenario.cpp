#include "apps/zolt-sim/control/scenario.h"

#include <optional>
#include <utility>

#include "apps/zolt-sim/control/control.h"
#include "apps/zolt-sim/text.h"

namespace sim {
namespace {

using std::chrono::microseconds;

// "12" or "12.5": seconds with up to six decimals.
std::optional<microseconds> parseSeconds(const std::string& word) {
    constexpr unsigned kLongest = 1000000;
    constexpr std::size_t kDecimals = 6;
    const std::size_t point = word.find('.');
    const auto whole = parseDecimal(word.substr(0, point), kLongest);
    if (!whole) {
        return std::nullopt;
    }
    microseconds time = std::chrono::seconds(*whole);
    if (point != std::string::npos) {
        std::string decimals = word.substr(point + 1);
        if (decimals.empty() || decimals.size() > kDecimals) {
            return std::nullopt;
        }
        decimals.resize(kDecimals, '0');
        const auto fraction = parseDecimal(decimals, 999999);
        if (!fraction) {
            return std::nullopt;
        }
        time += microseconds(*fraction);
    }
    return time;
}

ScenarioStep parseStep(const std::string& line, microseconds earliest) {
    const std::size_t end = line.find_first_of(" \t");
    const std::string word = line.substr(0, end);
    const auto time = parseSeconds(word);
    if (!time) {
        throw std::invalid_argument("\"" + word + "\" is no time in seconds (such as 2 or 2.5)");
    }
    if (*time < earliest) {
        throw std::invalid_argument("the time " + word + " is before that of the step above");
    }
    const std::string control = end == std::string::npos ? "" : line.substr(end);
    static_cast<void>(parseControl(control));
    return {*time, control.substr(control.find_first_not_of(" \t"))};
}

}  // namespace

std::vector<ScenarioStep> parseScenario(std::string_view text, const std::string& fileName) {
    std::vector<ScenarioStep> steps;
    microseconds latest{0};
    unsigned lineNumber = 0;
    for (const std::string& fullLine : splitLines(text)) {
        ++lineNumber;
        const std::string line(withoutComment(fullLine));
        if (line.empty()) {
            continue;
        }
        try {
            steps.push_back(parseStep(line, latest));
            latest = steps.back().at;
        } catch (const std::invalid_argument& error) {
            throw ScenarioError(fileName + ":" + std::to_string(lineNumber) + ": " + error.what());
        }
    }
    return steps;
}

ScenarioPlayer::ScenarioPlayer(std::vector<ScenarioStep> steps, Clock::time_point start,
                               std::function<void(const std::string& control)> play)
    : thread_([this, steps = std::move(steps), start, play = std::move(play)] {
          for (const ScenarioStep& step : steps) {
              if (!holdUntil(start + step.at, stop_.get())) {
                  return;
              }
              play(step.control);
          }
      }) {}

ScenarioPlayer::~ScenarioPlayer() {
    stop_.wake();
    thread_.join();
}

}  // namespace sim
