#include "apps/zolt-sim/control/scenario.h"

#include <optional>
#include <utility>

#include "apps/zolt-sim/control/control.h"
#include "apps/zolt-sim/error.h"
#include "apps/zolt-sim/text_file.h"
#include "lib/text/decimal.h"

namespace zolt_sim {
namespace {

using std::chrono::microseconds;

/// Reads seconds with up to six decimals, such as "12" or "12.5".
std::optional<microseconds> parseSeconds(const std::string& word) {
    constexpr unsigned kMostSeconds = 1000000;
    constexpr std::size_t kDecimals = 6;
    const std::size_t point = word.find('.');
    const auto whole = zolt_text::parseDecimal(word.substr(0, point), kMostSeconds);
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
        const auto fraction = zolt_text::parseDecimal(decimals, 999999);
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
        throw Error("\"" + word + "\" is not a time in seconds such as 2 or 2.5");
    }
    if (*time < earliest) {
        throw Error("the time " + word + " is earlier than the one above");
    }
    const std::string control = end == std::string::npos ? "" : line.substr(end);
    static_cast<void>(parseControl(control));
    return {*time, control.substr(control.find_first_not_of(" \t"))};
}

}  // namespace

std::vector<ScenarioStep> parseScenario(std::string_view text, const std::string& fileName) {
    std::vector<ScenarioStep> steps;
    forEachEntry(text, fileName, [&steps](const std::string& entry) {
        const microseconds earliest = steps.empty() ? microseconds{0} : steps.back().at;
        steps.push_back(parseStep(entry, earliest));
    });
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
    stop_.raise();
    thread_.join();
}

}  // namespace zolt_sim
