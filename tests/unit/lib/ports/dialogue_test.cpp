#include "lib/ports/dialogue.h"

#include <gtest/gtest.h>

#include "tests/unit/lib/ports/error_of.h"

using namespace zolt_ports;

namespace {

using Lines = std::vector<std::string>;

/// Feeds all items and returns the event of the last one.
Dialogue::Event feedAll(Dialogue& dialogue, const Lines& items) {
    Dialogue::Event event;
    for (const std::string& item : items) {
        event = dialogue.feed(item);
    }
    return event;
}

}  // namespace

TEST(Dialogue, ReplyEndsWithThePrompt) {
    Dialogue dialogue("\r\n");
    EXPECT_FALSE(feedAll(dialogue, {"CIA: MASK is GOT from card", "AMV:0xF:0x0F"}).reply);
    EXPECT_EQ(dialogue.lines().size(), 2U);
    const auto reply = dialogue.feed(">").reply;
    ASSERT_TRUE(reply);
    EXPECT_EQ(reply->lines, (Lines{"CIA: MASK is GOT from card", "AMV:0xF:0x0F"}));
    EXPECT_FALSE(reply->unknown);
    EXPECT_TRUE(dialogue.lines().empty());
}

TEST(Dialogue, UnknownCommandIsOneItemWithItsPrompt) {
    for (const std::string separator : {"\r\n", "\n", "", ";"}) {
        Dialogue dialogue(separator);
        const auto reply = dialogue.feed("CIE: UNKNOWN COMMAND " + separator + ">").reply;
        ASSERT_TRUE(reply) << separator;
        EXPECT_TRUE(reply->unknown);
        EXPECT_EQ(reply->lines, Lines{"CIE: UNKNOWN COMMAND "});
    }
}

TEST(Dialogue, RefusedIoCommandIsNoReply) {
    Dialogue dialogue("\r\n");
    EXPECT_FALSE(dialogue.feed("COE:Illegal command -> zzz").unasked);
    const auto event = dialogue.feed(">");
    EXPECT_FALSE(event.reply);
    EXPECT_EQ(event.unasked, "COE:Illegal command -> zzz");
    EXPECT_TRUE(feedAll(dialogue, {"CIA: DRIVER VERSION 1.20", ">"}).reply);
}

TEST(Dialogue, RefusedIoCommandMayBeCutByACarriageReturn) {
    Dialogue dialogue("");
    EXPECT_EQ(feedAll(dialogue, {"COE:Illegal command -> zz", "z", ">"}).unasked,
              "COE:Illegal command -> zz\rz");
}

TEST(Dialogue, ReplyWithoutEndDoesNotLookLikeZolt) {
    Dialogue dialogue("\r\n");
    EXPECT_EQ(errorOf(Reason::kNotZolt,
                      [&] {
                          for (int i = 0; i <= 2000; ++i) {
                              dialogue.feed("x");
                          }
                      }),
              "the answer does not look like zolt: it has no end");
}
