#include "apps/zolt-sim/control/scenario.h"

#include <gtest/gtest.h>

#include <mutex>

#include "tests/unit/zolt-sim/complaint_of.h"
#include "tests/unit/zolt-sim/support.h"

namespace zolt_sim {
namespace {

using std::chrono::microseconds;

std::string reasonForScenario(const std::string& text) {
    return complaintOf([&] { parseScenario(text, "x.scenario"); });
}

TEST(Scenario, IsAListOfTimesAndControls) {
    const auto steps = parseScenario(
        "# demo\n0 press 3 6\n\n0.5 release 3 6 # up\n 2.000001\tfault silence\n2.000001 show\n",
        "x.scenario");
    ASSERT_EQ(steps.size(), 4U);
    EXPECT_EQ(steps[0].at, microseconds(0));
    EXPECT_EQ(steps[0].control, "press 3 6");
    EXPECT_EQ(steps[1].at, microseconds(500000));
    EXPECT_EQ(steps[1].control, "release 3 6");
    EXPECT_EQ(steps[2].at, microseconds(2000001));
    EXPECT_EQ(steps[2].control, "fault silence");
    EXPECT_TRUE(parseScenario("", "x.scenario").empty());
}

TEST(Scenario, GivesAMistakeItsPlaceAndReason) {
    EXPECT_EQ(reasonForScenario("soon press 3 6\n"),
              "x.scenario:1: \"soon\" is not a time in seconds such as 2 or 2.5");
    EXPECT_EQ(reasonForScenario("1. show\n"),
              "x.scenario:1: \"1.\" is not a time in seconds such as 2 or 2.5");
    EXPECT_EQ(reasonForScenario(".5 show\n"),
              "x.scenario:1: \".5\" is not a time in seconds such as 2 or 2.5");
    EXPECT_EQ(reasonForScenario("1.0000001 show\n"),
              "x.scenario:1: \"1.0000001\" is not a time in seconds such as 2 or 2.5");
    EXPECT_EQ(reasonForScenario("-1 show\n"),
              "x.scenario:1: \"-1\" is not a time in seconds such as 2 or 2.5");
    EXPECT_EQ(reasonForScenario("2 show\n\n1.9 show\n"),
              "x.scenario:3: the time 1.9 is earlier than the one above");
    EXPECT_EQ(reasonForScenario("1 press 3\n"), "x.scenario:1: use: press A N");
    EXPECT_EQ(reasonForScenario("1\n"),
              "x.scenario:1: the line is empty (help lists the controls)");
}

TEST(ScenarioPlayer, PlaysInOrder) {
    std::mutex lock;
    std::vector<std::string> played;
    const ScenarioPlayer player(parseScenario("0 show\n0.01 help\n0.02 faults\n", "x.scenario"),
                                Clock::now(), [&](const std::string& control) {
                                    const std::lock_guard guard(lock);
                                    played.push_back(control);
                                });
    EXPECT_TRUE(test::waitUntil([&] {
        const std::lock_guard guard(lock);
        return played.size() == 3;
    }));
    const std::lock_guard guard(lock);
    EXPECT_EQ(played, (std::vector<std::string>{"show", "help", "faults"}));
}

TEST(ScenarioPlayer, DropsTheRestWhenItEnds) {
    bool played = false;
    {
        const ScenarioPlayer player(parseScenario("3600 show\n", "x.scenario"), Clock::now(),
                                    [&](const std::string&) { played = true; });
    }
    EXPECT_FALSE(played);
}

}  // namespace
}  // namespace zolt_sim
