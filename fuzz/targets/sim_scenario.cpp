// Fuzzes the scenario file of the simulated bus.

#include <chrono>
#include <string>

#include "apps/zolt-sim/control/control.h"
#include "apps/zolt-sim/control/scenario.h"
#include "apps/zolt-sim/error.h"
#include "fuzz/support/target.h"

namespace {

constexpr std::size_t kMostBytes = 4096;

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    try {
        std::chrono::microseconds latest{0};
        for (const zolt_sim::ScenarioStep& step :
             zolt_sim::parseScenario(fuzz::textOf(data, size, kMostBytes), "fuzz.scenario")) {
            fuzz::require(step.at >= latest, "the times ascend");
            latest = step.at;
            // A control that cannot be parsed throws, which ends the run as a finding.
            static_cast<void>(zolt_sim::parseControl(step.control));
        }
        fuzz::require(latest <= std::chrono::seconds(1000001), "no time beyond the longest");
    } catch (const zolt_sim::Error& error) {
        fuzz::require(std::string(error.what()).starts_with("fuzz.scenario:"),
                      "a mistake is reported with its place");
    }
    return 0;
}
