#include "apps/zolt-check/findings/spelling.h"

#include <gtest/gtest.h>

namespace {

TEST(Spelling, SuggestsTheNearestName) {
    const std::vector<std::string> known{"Debuglog", "Speed", "IO", "CAE"};
    const auto suggestion = [&](const char* name) { return zolt_check::didYouMean(name, known); };
    EXPECT_EQ(suggestion("SPEED"), " (did you mean \"Speed\"?)");
    EXPECT_EQ(suggestion("Sped"), " (did you mean \"Speed\"?)");
    EXPECT_EQ(suggestion("Spedds"), " (did you mean \"Speed\"?)");
    EXPECT_EQ(suggestion("debug-log"), " (did you mean \"Debuglog\"?)");
    EXPECT_EQ(suggestion("I0"), " (did you mean \"IO\"?)");
    EXPECT_EQ(suggestion("CAEX"), " (did you mean \"CAE\"?)");
    EXPECT_EQ(suggestion("DMI"), "");
    EXPECT_EQ(suggestion("Spoon"), "");
    EXPECT_EQ(suggestion(""), "");
}

}  // namespace
