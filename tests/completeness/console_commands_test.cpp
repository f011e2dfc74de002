#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>

#include "control/card_config_table.h"
#include "control/console_line.h"
#include "control/driver_commands.h"
#include "control/help_text.h"
#include "tests/completeness/source_words.h"

namespace completeness {
namespace {

/// One row of the two command tables.
struct Command {
    std::string keyword;
    Match match;
};

void PrintTo(const Command& command, std::ostream* out) {
    *out << command.keyword;
}

std::vector<Command> commands() {
    std::vector<Command> all;
    for (const DriverCommand& row : driverCommands()) {
        if (row.match != Match::kTable) all.push_back({row.keyword, row.match});
    }
    for (const CardConfigCommand& row : cardConfigCommands()) {
        all.push_back({row.keyword, Match::kContains});
    }
    return all;
}

class EveryConsoleCommand : public testing::TestWithParam<Command> {
  protected:
    /// Whether the text has a word that is this command.
    static bool isIn(const std::string& text) {
        return hasWord(text, [](const std::string& word) {
            return matches(ConsoleLine(word + "\r\n", "\r\n"), GetParam().keyword.c_str(),
                           GetParam().match);
        });
    }
};

TEST_P(EveryConsoleCommand, IsInTheHelpTextOrInTheBanner) {
    const auto lines = help_text::help();
    const bool isInHelp = std::any_of(lines.begin(), lines.end(), [](const std::string& line) {
        return line.starts_with(" - " + GetParam().keyword);
    });
    const std::string banner = sourceFile("src/ports/socket_listen.cpp");
    EXPECT_TRUE(isInHelp || banner.find("Type " + GetParam().keyword) != std::string::npos)
        << "src/control/help_text.cpp, tests/unit/control/help.txt";
}

TEST_P(EveryConsoleCommand, HasARowInTheDocuments) {
    EXPECT_NE(sourceFile("docs/clients.md").find("\n| `" + GetParam().keyword), std::string::npos)
        << "docs/clients.md";
}

TEST_P(EveryConsoleCommand, IsShownInADialogueOfTheDocuments) {
    EXPECT_NE(sourceFile("docs/clients.md").find("\n    > " + GetParam().keyword),
              std::string::npos)
        << "docs/clients.md";
}

TEST_P(EveryConsoleCommand, IsCompletedByTheConsoleOfZoltctl) {
    EXPECT_NE(sourceFile("apps/zoltctl/console/console_words.cpp").find("\"" + GetParam().keyword),
              std::string::npos)
        << "apps/zoltctl/console/console_words.cpp";
}

TEST_P(EveryConsoleCommand, IsAWordOfTheFuzzer) {
    EXPECT_NE(sourceFile("fuzz/dictionaries/console_lines.dict")
                  .find("\n\"" + GetParam().keyword + "\"\n"),
              std::string::npos)
        << "fuzz/dictionaries/console_lines.dict";
}

TEST_P(EveryConsoleCommand, IsMeasured) {
    EXPECT_TRUE(isIn(sourceFile("bench/micro/console_bench.cpp")))
        << "bench/micro/console_bench.cpp";
}

TEST_P(EveryConsoleCommand, IsCutAndMixedByTheRobustnessTest) {
    EXPECT_TRUE(isIn(sourceFile("tests/unit/control/console_robustness_test.cpp")))
        << "tests/unit/control/console_robustness_test.cpp";
}

TEST_P(EveryConsoleCommand, IsSentInAGoldenDialogue) {
    const std::vector<std::string> sent = sentInDialogues("cae");
    // The replies that follow do not count: that of HELP names every command.
    EXPECT_TRUE(std::any_of(sent.begin(), sent.end(), [](const std::string& dialogue) {
        return isIn(dialogue.substr(0, dialogue.find('\n')));
    })) << "tests/golden/dialogues";
}

INSTANTIATE_TEST_SUITE_P(Table, EveryConsoleCommand, testing::ValuesIn(commands()),
                         [](const auto& tested) {
                             std::string name = tested.param.keyword;
                             std::erase_if(name, [](char c) { return !std::isalnum(c); });
                             return name;
                         });

}  // namespace
}  // namespace completeness
