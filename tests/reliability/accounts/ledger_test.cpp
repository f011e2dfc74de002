#include "tests/reliability/accounts/ledger.h"

#include <gtest/gtest.h>

namespace reliability {
namespace {

Ledger played(const std::string& sent, const std::string& seen) {
    Ledger ledger;
    for (const char item : sent) ledger.send(std::string(1, item));
    for (const char item : seen) ledger.see(std::string(1, item));
    ledger.close();
    return ledger;
}

TEST(Ledger, AllInOrderIsExact) {
    const Tally tally = played("abc", "abc").tally();
    EXPECT_TRUE(tally.exact());
    EXPECT_EQ(tally.text(), "sent 3, seen 3, lost 0, doubled 0, out of order 0");
}

TEST(Ledger, WhatNeverComesIsLost) {
    EXPECT_EQ(played("abcd", "ac").tally().text(),
              "sent 4, seen 2, lost 2, doubled 0, out of order 0");
    EXPECT_FALSE(played("ab", "a").tally().exact());
}

TEST(Ledger, WhatComesTwiceIsDoubled) {
    EXPECT_EQ(played("abc", "aabc").tally().text(),
              "sent 3, seen 4, lost 0, doubled 1, out of order 0");
    EXPECT_EQ(played("abc", "abca").tally().text(),
              "sent 3, seen 4, lost 0, doubled 1, out of order 0");
}

TEST(Ledger, WhatALaterOneOvertakesIsOutOfOrderAndNotLost) {
    EXPECT_EQ(played("abc", "bac").tally().text(),
              "sent 3, seen 3, lost 0, doubled 0, out of order 1");
}

TEST(Ledger, WhatWasNeverSentIsUnknown) {
    EXPECT_EQ(played("ab", "axb").tally().text(),
              "sent 2, seen 3, lost 0, doubled 0, out of order 0, unknown 1");
}

TEST(Ledger, AnItemMayComeAgainWhenItsLikeHasArrived) {
    Ledger ledger;
    for (int round = 0; round < 3; ++round) {
        ledger.send("a");
        ledger.see("a");
    }
    EXPECT_TRUE(ledger.tally().exact());
}

TEST(Ledger, OneLossAndOneDoublingDoNotMakeUpForEachOther) {
    EXPECT_FALSE(played("abc", "aac").tally().exact());
}

}  // namespace
}  // namespace reliability
