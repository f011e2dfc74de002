#include "lib/text/alternatives.h"

#include <gtest/gtest.h>

using namespace zolt_text;

namespace {

TEST(Alternatives, HaveAnOrBeforeTheLastOne) {
    EXPECT_EQ(alternatives({}), "");
    EXPECT_EQ(alternatives({"a"}), "a");
    EXPECT_EQ(alternatives({"a", "b"}), "a or b");
    EXPECT_EQ(alternatives({"a", "b", "c"}), "a, b or c");
}

}  // namespace
