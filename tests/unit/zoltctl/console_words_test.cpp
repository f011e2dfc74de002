#include "apps/zoltctl/console/console_words.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>

#include "control/card_config_table.h"
#include "control/driver_commands.h"

using namespace zoltctl;

namespace {

using Completions = std::vector<std::string>;

/// The daemon's word with the characters after it that no parameter varies.
std::set<std::string> wordsOf(const CardConfigCommand& command) {
    const std::string word = command.keyword;
    switch (command.shape) {
        case CardConfigCommand::Shape::kEndChannel:
            return {word + "A", word + "B"};
        case CardConfigCommand::Shape::kChannel:
            return {word};
        case CardConfigCommand::Shape::kAddress:
            break;
    }
    return {word.ends_with(':') ? word : word + ":"};
}

std::set<std::string> wordsOfTheDaemon() {
    std::set<std::string> words;
    for (const DriverCommand& command : driverCommands()) {
        if (command.match != Match::kTable) {
            words.insert(command.keyword);
        }
    }
    for (const CardConfigCommand& command : cardConfigCommands()) {
        words.merge(wordsOf(command));
    }
    return words;
}

}  // namespace

TEST(ConsoleWords, AreThoseOfTheDaemonInAlphabeticalOrder) {
    const std::set<std::string> expected = wordsOfTheDaemon();
    const auto words = consoleWords();
    EXPECT_EQ(Completions(words.begin(), words.end()),
              Completions(expected.begin(), expected.end()));
}

TEST(ConsoleWords, CompleteWhatIsTyped) {
    EXPECT_EQ(completionsOf("DISC"), Completions{"DISCOVER"});
    EXPECT_EQ(completionsOf("POLL"), (Completions{"POLLOFF:", "POLLON:", "POLLSTATE"}));
    EXPECT_EQ(completionsOf("disc"), Completions{});
    EXPECT_EQ(completionsOf("").size(), consoleWords().size());
}

TEST(ConsoleWords, ShareABeginning) {
    EXPECT_EQ(commonStart({"POLLOFF:", "POLLON:", "POLLSTATE"}), "POLL");
    EXPECT_EQ(commonStart({"POLLOFF:", "POLLON:"}), "POLLO");
    EXPECT_EQ(commonStart({"EXIT"}), "EXIT");
    EXPECT_EQ(commonStart({"EXIT", "HELP"}), "");
    EXPECT_EQ(commonStart({}), "");
}
