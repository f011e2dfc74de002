#include "apps/zoltctl/console/console_words.h"

#include <gtest/gtest.h>

using namespace ctl;

using Completions = std::vector<std::string>;

TEST(CtlConsoleWords, CompleteWhatIsTyped) {
    EXPECT_EQ(consoleWords("DISC"), Completions{"DISCOVER"});
    EXPECT_EQ(consoleWords("POLL"), (Completions{"POLLOFF:", "POLLON:", "POLLSTATE"}));
    EXPECT_EQ(consoleWords("disc"), Completions{});
    EXPECT_EQ(consoleWords("").size(), 28U);
}

TEST(CtlConsoleWords, CommonStart) {
    EXPECT_EQ(commonStart({"POLLOFF:", "POLLON:", "POLLSTATE"}), "POLL");
    EXPECT_EQ(commonStart({"POLLOFF:", "POLLON:"}), "POLLO");
    EXPECT_EQ(commonStart({"EXIT"}), "EXIT");
    EXPECT_EQ(commonStart({"EXIT", "HELP"}), "");
    EXPECT_EQ(commonStart({}), "");
}
