#include "tests/golden/dialogue.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace golden {
namespace {

constexpr const char* kExample =
    "# What it shows.\n"
    "bus-line 5 digital-output\n"
    "bus-line 3 digital-input\n"
    "polling on\n"
    "separator io in \";\"\n"
    "\n"
    "start\n"
    "    log    [INF] zolt is started\n"
    "# Why.\n"
    "settle 0.5\n"
    "send io \"a;\"\n"
    "    cae    \"COE\\r\\n\\r\"\n"
    "    # between\n"
    "    bus    host> 01 | 30\n";

std::string refusal(const std::string& text) {
    try {
        Dialogue::parse("x.dialogue", text);
    } catch (const std::invalid_argument& error) {
        return error.what();
    }
    return "accepted";
}

TEST(Dialogue, SettingsStepsAndExpectationsAreRead) {
    const auto dialogue = Dialogue::parse("x.dialogue", kExample);
    EXPECT_EQ(dialogue.setup().bus, "5 digital-output\n3 digital-input\n");
    EXPECT_TRUE(dialogue.setup().settings.polling);
    EXPECT_FALSE(dialogue.setup().settings.discover);
    EXPECT_EQ(dialogue.setup().settings.io.inSeparator, ";");
    ASSERT_EQ(dialogue.steps().size(), 2U);
    EXPECT_EQ(dialogue.steps()[0].text(), "start");
    EXPECT_EQ(dialogue.steps()[1].text(), "send io \"a;\"");
    EXPECT_EQ(dialogue.steps()[1].line, 11);
    EXPECT_EQ(dialogue.steps()[1].settle, std::chrono::milliseconds(500));
    ASSERT_EQ(dialogue.steps()[1].expected.size(), 2U);
    EXPECT_EQ(dialogue.steps()[1].expected[0].text, "COE\r\n\r");
}

TEST(Dialogue, RebuiltFileKeepsEverythingButTheExpectations) {
    const auto dialogue = Dialogue::parse("x.dialogue", kExample);
    EXPECT_EQ(dialogue.withExpectations({{}, {{"io", ItemKind::kBytes, "new"}}}),
              "# What it shows.\n"
              "bus-line 5 digital-output\n"
              "bus-line 3 digital-input\n"
              "polling on\n"
              "separator io in \";\"\n"
              "\n"
              "start\n"
              "# Why.\n"
              "settle 0.5\n"
              "send io \"a;\"\n"
              "    io     \"new\"\n"
              "    # between\n");
}

TEST(Dialogue, MistakesAreReportedWithTheirLine) {
    EXPECT_EQ(refusal("start\n\nfly away\n"), "x.dialogue:3: unknown action \"fly\"");
    EXPECT_EQ(refusal("polling maybe\nstart\n"), "x.dialogue:1: expected on or off, not \"maybe\"");
    EXPECT_EQ(refusal("percent 5x\nstart\n"), "x.dialogue:1: expected a number, not \"5x\"");
    EXPECT_EQ(refusal("separator dmi in \";\"\nstart\n"),
              "x.dialogue:1: expected: separator io|cae|mon in|out \"TEXT\"");
    EXPECT_EQ(refusal("    log x\nstart\n"),
              "x.dialogue:1: an expectation before the first action");
    EXPECT_EQ(refusal("start\n    lag x\n"), "x.dialogue:2: unknown channel \"lag\"");
    EXPECT_EQ(refusal("start\nsettle soon\n"), "x.dialogue:2: expected seconds, not \"soon\"");
    EXPECT_EQ(refusal("percent 5\n"), "x.dialogue: no action");
}

}  // namespace
}  // namespace golden
