#include "apps/zoltctl/ports/replies.h"

#include <gtest/gtest.h>

#include "tests/unit/zoltctl/failure_of.h"

using namespace ctl;

namespace {

Reply cardTable(const std::string& heading) {
    Reply reply{{heading}, false, false};
    for (const char digit : std::string("0123456789ABCDEF")) {
        reply.lines.push_back(std::string("DTI:0x") + digit + ":" +
                              (digit == '3' ? "16 channel DIGITAL INPUT" : "EMPTY"));
    }
    return reply;
}

Reply lines(const std::vector<std::string>& texts) {
    return {texts, false, false};
}

}  // namespace

TEST(CtlReplies, CardTableHasSixteenEntries) {
    const auto cards = parseCards(cardTable("DISCOVER LIST:"), "DISCOVER");
    ASSERT_EQ(cards.size(), 16U);
    EXPECT_EQ(cards[3].address, '3');
    EXPECT_EQ(cards[3].kind, "16 channel DIGITAL INPUT");
    EXPECT_EQ(cards[15].address, 'F');
    EXPECT_EQ(cards[15].kind, kNoCard);
    EXPECT_EQ(parseCards(cardTable("FORCED DISCOVER LIST:"), "FORCEDISCOVER").size(), 16U);
}

TEST(CtlReplies, CardTableThatIsDifferentIsNoneOfTheDaemons) {
    const auto complaint = [](const Reply& reply) {
        return failureOf([&] { parseCards(reply, "DISCOVER"); });
    };
    EXPECT_EQ(complaint(cardTable("FORCED DISCOVER LIST:")).substr(0, 2), "7 ");
    EXPECT_EQ(complaint(lines({})), "7 the answer to DISCOVER is none of zolt's: \"\"");
    for (const char* entry :
         {"DTI:0x4:EMPTY", "DTI:0x3:", "DTI:0x3", "DTI:3:EMPTY", "PTI:0x3:ON", ""}) {
        Reply reply = cardTable("DISCOVER LIST:");
        reply.lines[4] = entry;
        EXPECT_EQ(complaint(reply),
                  "7 the answer to DISCOVER is none of zolt's: \"" + std::string(entry) + "\"");
    }
    Reply shorter = cardTable("DISCOVER LIST:");
    shorter.lines.pop_back();
    EXPECT_EQ(complaint(shorter).substr(0, 2), "7 ");
}

TEST(CtlReplies, PollStates) {
    const auto states = parsePollStates(
        lines({"CIA: GLOBAL POLLING IS DISABLED", "PTI:0x3:ON", "PTI:0xF:OFF"}), "POLLSTATE");
    EXPECT_FALSE(states.global);
    ASSERT_EQ(states.cards.size(), 2U);
    EXPECT_EQ(states.cards[0].address, '3');
    EXPECT_TRUE(states.cards[0].polling);
    EXPECT_EQ(states.cards[1].address, 'F');
    EXPECT_FALSE(states.cards[1].polling);
    EXPECT_TRUE(parsePollStates(lines({"CIA: GLOBAL POLLING IS ENABLED"}), "POLLSTATE").global);
}

TEST(CtlReplies, OtherPollStatesAreNoneOfTheDaemons) {
    const std::string global = "CIA: GLOBAL POLLING IS ENABLED";
    for (const auto& reply :
         {lines({}), lines({"CIA: GLOBAL POLLING IS ODD"}), lines({global, "PTI:0x3:MAYBE"}),
          lines({global, "PTI:0xG:ON"}), lines({global, "hello"})}) {
        EXPECT_EQ(failureOf([&] { parsePollStates(reply, "POLLSTATE"); }).substr(0, 2), "7 ");
    }
}

TEST(CtlReplies, RefusalsAreToldInTheDaemonsWords) {
    EXPECT_EQ(failureOf([] {
                  expectAccepted(lines({"CIA: fine", "CIE: MASK WRITE ERROR"}), "X");
              }),
              "1 CIE: MASK WRITE ERROR");
    EXPECT_EQ(failureOf([] {
                  expectAccepted({{"CIE: UNKNOWN COMMAND "}, true, false}, "zz");
              }),
              "1 the daemon does not know zz (CIE: UNKNOWN COMMAND), or its InpSeparator is "
              "another than --line-end");
    EXPECT_EQ(failureOf([] { expectAccepted(lines({"CIA: fine"}), "X"); }), "none");
}

TEST(CtlReplies, OnlyLine) {
    EXPECT_EQ(onlyLine(lines({"CIA: DRIVER VERSION 1.20"}), "DRVVER", "CIA: DRIVER VERSION "),
              "1.20");
    for (const auto& reply : {lines({}), lines({"CIA: X"}), lines({"A", "B"})}) {
        EXPECT_EQ(failureOf([&] { onlyLine(reply, "DRVVER", "A"); }).substr(0, 2), "7 ");
    }
}

TEST(CtlReplies, ForeignReplyIsQuotedInOneLine) {
    EXPECT_STREQ(foreignReply(lines({"a\x1b", "b"}), "X").what(),
                 "the answer to X is none of zolt's: \"a\\x1B\\nb\"");
}
