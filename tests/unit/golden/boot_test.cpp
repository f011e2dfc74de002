#include "tests/golden/boot.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <stdexcept>
#include <string>
#include <vector>

#include "tests/golden/dialogue.h"

namespace golden {
namespace {

Setup busSetup() {
    Setup setup;
    setup.bus = "5 digital-output\n";
    return setup;
}

std::vector<std::string> linesOf(const std::vector<Item>& items) {
    std::vector<std::string> lines;
    for (const auto& item : items) lines.push_back(writeItem(item));
    return lines;
}

bool hasLine(const std::vector<std::string>& lines, const std::string& line) {
    return std::find(lines.begin(), lines.end(), line) != lines.end();
}

std::string bootRefusal(const std::string& text) {
    try {
        Dialogue::parse("x.dialogue", text);
    } catch (const std::invalid_argument& error) {
        return error.what();
    }
    return "accepted";
}

TEST(Boot, DemandsTheWholeStart) {
    EXPECT_EQ(linesOf(bootItems(busSetup(), {})),
              (std::vector<std::string>{
                  "log    [INF] zolt is started",
                  "log    [INF] Initparam Autodiscover: FALSE",
                  "log    [INF] Initparam Enablepoll: FALSE",
                  "log    [INF] Initparam Speed (ThreadDelay): 2525",
                  "log    [INF] CAE interface listening on port 5001",
                  "log    [INF] IO interface listening on port 5002",
                  "log    [INF] MON interface listening on port 5003",
                  "log    [INF] CAE interface is waiting for incoming connection",
                  "log    [INF] IO interface is waiting for incoming connection",
                  "log    [INF] MON interface is waiting for incoming connection",
                  "log    [INF] try to catch hardware on /dev/ttyUSB0",
                  "log    [INF] hardware found on /dev/ttyUSB0 version: 1.04",
                  "bus    host> 03 | 40 6F 9A",
                  "bus    bus> 05 | 06 31 2E 30 34",
              }));
}

TEST(Boot, FollowsTheSettings) {
    auto setup = busSetup();
    setup.settings.discover = true;
    setup.settings.polling = true;
    setup.settings.percent = -400;
    setup.link = "/dev/ttyUSB10";
    const auto lines = linesOf(bootItems(setup, {}));
    EXPECT_TRUE(hasLine(lines, "log    [INF] Initparam Autodiscover: TRUE"));
    EXPECT_TRUE(hasLine(lines, "log    [INF] Initparam Enablepoll: TRUE"));
    EXPECT_TRUE(hasLine(lines, "log    [INF] Initparam Speed (ThreadDelay): 25248"));
    EXPECT_TRUE(hasLine(lines, "log    [INF] try to catch hardware on /dev/ttyUSB10"));
    EXPECT_TRUE(hasLine(lines, "log    [INF] hardware found on /dev/ttyUSB10 version: 1.04"));
    EXPECT_TRUE(hasLine(lines, "bus    host> 01 | 30"));
}

TEST(Boot, DemandsTheGreetingOfEachClient) {
    const std::size_t start = bootItems(busSetup(), {}).size();
    auto lines = linesOf(bootItems(busSetup(), {"cae", "mon"}));
    lines.erase(lines.begin(), lines.begin() + static_cast<std::ptrdiff_t>(start));
    EXPECT_EQ(lines,
              (std::vector<std::string>{
                  "log    [INF] client is connected on CAE interface from 127.0.0.1:PORT",
                  R"(cae    "ZOLT CAE interface is ready\r\n(Type HELP for help)\r\n>\r\n\r")",
                  "log    [INF] client is connected on MON interface from 127.0.0.1:PORT",
                  R"(mon    "ZOLT MON interface is ready\r\n\r")",
              }));
}

TEST(Boot, IsReadAsAnActionWithImpliedItems) {
    const auto dialogue = Dialogue::parse("x.dialogue",
                                          "bus-line 5 digital-output\n"
                                          "boot io\n"
                                          "    bus    bus> 01 | 31\n");
    ASSERT_EQ(dialogue.steps().size(), 1U);
    EXPECT_EQ(dialogue.steps()[0].text(), "boot io");
    EXPECT_EQ(dialogue.steps()[0].implied, bootItems(busSetup(), {"io"}));
    EXPECT_EQ(linesOf(dialogue.steps()[0].expected),
              std::vector<std::string>{"bus    bus> 01 | 31"});
}

TEST(Boot, OnlyWhatItDoesNotDemandIsWrittenByRebuild) {
    const auto dialogue =
        Dialogue::parse("x.dialogue", "bus-line 5 digital-output\nboot\n    bus    old\n");
    auto recorded = bootItems(busSetup(), {});
    recorded.push_back({"bus", ItemKind::kLine, "new"});
    EXPECT_EQ(dialogue.withExpectations({recorded}),
              "bus-line 5 digital-output\nboot\n    bus    new\n");
}

TEST(Boot, RebuildRefusesAnotherStart) {
    const auto dialogue = Dialogue::parse("x.dialogue", "bus-line 5 digital-output\nboot\n");
    auto recorded = bootItems(busSetup(), {});
    recorded.erase(recorded.begin());
    EXPECT_THROW(dialogue.withExpectations({recorded}), std::runtime_error);
}

TEST(Boot, RefusesSetupsWhoseStartItDoesNotKnow) {
    EXPECT_EQ(bootRefusal("boot\n"), "x.dialogue:1: boot needs a bus and no config-line");
    EXPECT_EQ(bootRefusal("bus-line 5 digital-output\nconfig-line <a/>\nboot\n"),
              "x.dialogue:3: boot needs a bus and no config-line");
    EXPECT_EQ(bootRefusal("bus-line 5 digital-output\npercent 7\nboot\n"),
              "x.dialogue:3: boot knows the delays of percent 50 and -400 only");
    EXPECT_EQ(bootRefusal("bus-line 5 digital-output\nboot dmi\n"),
              "x.dialogue:2: \"dmi\" is not a client");
}

}  // namespace
}  // namespace golden
