#include "apps/zolt-sim/words.h"

#include <gtest/gtest.h>

namespace zolt_sim {
namespace {

TEST(Words, AreSeparatedByBlanksAndTabs) {
    EXPECT_EQ(splitWords(" press\t3  6 "), (Words{"press", "3", "6"}));
    EXPECT_EQ(splitWords("quit\r"), (Words{"quit"}));
    EXPECT_TRUE(splitWords(" \t").empty());
}

}  // namespace
}  // namespace zolt_sim
