#include "lib/ports/replies.h"

#include <gtest/gtest.h>

#include "tests/unit/lib/ports/error_of.h"

using namespace zolt_ports;

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

TEST(Replies, CardTableHasSixteenEntries) {
    const auto cards = parseCards(cardTable("DISCOVER LIST:"), "DISCOVER");
    ASSERT_EQ(cards.size(), 16U);
    EXPECT_EQ(cards[3].address, '3');
    EXPECT_EQ(cards[3].kind, CardKind::kDigitalInput);
    EXPECT_EQ(cards[3].name, "16 channel DIGITAL INPUT");
    EXPECT_EQ(cards[15].address, 'F');
    EXPECT_EQ(cards[15].kind, CardKind::kEmpty);
    EXPECT_EQ(parseCards(cardTable("FORCED DISCOVER LIST:"), "FORCEDISCOVER").size(), 16U);
}

TEST(Replies, KindOfAnUnknownNameIsUnidentified) {
    Reply reply = cardTable("DISCOVER LIST:");
    reply.lines[4] = "DTI:0x3:8 channel RELAY";
    const CardEntry card = parseCards(reply, "DISCOVER")[3];
    EXPECT_EQ(card.kind, CardKind::kUnidentified);
    EXPECT_EQ(card.name, "8 channel RELAY");
}

TEST(Replies, CardTableThatIsDifferentDoesNotLookLikeZolt) {
    const auto complaint = [](const Reply& reply) {
        return errorOf(Reason::kNotZolt, [&] { parseCards(reply, "DISCOVER"); });
    };
    EXPECT_EQ(complaint(cardTable("FORCED DISCOVER LIST:")).substr(0, 10), "the answer");
    EXPECT_EQ(complaint(lines({})), "the answer to DISCOVER does not look like zolt: \"\"");
    for (const char* entry :
         {"DTI:0x4:EMPTY", "DTI:0x3:", "DTI:0x3", "DTI:3:EMPTY", "PTI:0x3:ON", ""}) {
        Reply reply = cardTable("DISCOVER LIST:");
        reply.lines[4] = entry;
        EXPECT_EQ(complaint(reply),
                  "the answer to DISCOVER does not look like zolt: \"" + std::string(entry) + "\"");
    }
    Reply shorter = cardTable("DISCOVER LIST:");
    shorter.lines.pop_back();
    EXPECT_EQ(complaint(shorter).substr(0, 10), "the answer");
}

TEST(Replies, PollStates) {
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

TEST(Replies, OtherPollStatesDoNotLookLikeZolt) {
    const std::string global = "CIA: GLOBAL POLLING IS ENABLED";
    for (const auto& reply :
         {lines({}), lines({"CIA: GLOBAL POLLING IS ODD"}), lines({global, "PTI:0x3:MAYBE"}),
          lines({global, "PTI:0xG:ON"}), lines({global, "hello"})}) {
        EXPECT_EQ(
            errorOf(Reason::kNotZolt, [&] { parsePollStates(reply, "POLLSTATE"); }).substr(0, 10),
            "the answer");
    }
}

TEST(Replies, RefusalsAreReportedInTheDaemonsWords) {
    EXPECT_EQ(errorOf(Reason::kRefused,
                      [] {
                          expectAccepted(lines({"CIA: fine", "CIE: MASK WRITE ERROR"}), "X");
                      }),
              "CIE: MASK WRITE ERROR");
    EXPECT_EQ(errorOf(Reason::kNotKnown,
                      [] {
                          expectAccepted({{"CIE: UNKNOWN COMMAND "}, true, false}, "zz");
                      }),
              "the daemon does not know zz (CIE: UNKNOWN COMMAND)");
    EXPECT_EQ(errorOf(Reason::kNotZolt, [] { expectAccepted(lines({"CIA: fine"}), "X"); }), "none");
}

TEST(Replies, OnlyLine) {
    EXPECT_EQ(onlyLine(lines({"CIA: DRIVER VERSION 1.20"}), "DRVVER", "CIA: DRIVER VERSION "),
              "1.20");
    for (const auto& reply : {lines({}), lines({"CIA: X"}), lines({"A", "B"})}) {
        EXPECT_EQ(errorOf(Reason::kNotZolt, [&] { onlyLine(reply, "DRVVER", "A"); }).substr(0, 10),
                  "the answer");
    }
}

TEST(Replies, ForeignReplyIsQuotedInOneLine) {
    EXPECT_STREQ(foreignReply(lines({"a\x1b", "b"}), "X").what(),
                 "the answer to X does not look like zolt: \"a\\x1B\\nb\"");
}
