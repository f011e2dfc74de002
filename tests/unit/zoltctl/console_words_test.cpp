#include "apps/zoltctl/console/console_words.h"

#include <gtest/gtest.h>

using namespace ctl;

using Words = std::vector<std::string>;

TEST(CtlConsoleWords, CompleteWhatIsTyped) {
    EXPECT_EQ(consoleWords("DISC"), Words{"DISCOVER"});
    EXPECT_EQ(consoleWords("POLL"), (Words{"POLLOFF:", "POLLON:", "POLLSTATE"}));
    EXPECT_EQ(consoleWords("disc"), Words{});
    EXPECT_EQ(consoleWords("").size(), 28U);
}

TEST(CtlConsoleWords, CommonStart) {
    EXPECT_EQ(commonStart({"POLLOFF:", "POLLON:", "POLLSTATE"}), "POLL");
    EXPECT_EQ(commonStart({"POLLOFF:", "POLLON:"}), "POLLO");
    EXPECT_EQ(commonStart({"EXIT"}), "EXIT");
    EXPECT_EQ(commonStart({"EXIT", "HELP"}), "");
    EXPECT_EQ(commonStart({}), "");
}
