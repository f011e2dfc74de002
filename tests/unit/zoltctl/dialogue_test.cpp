#include "apps/zoltctl/ports/dialogue.h"

#include <gtest/gtest.h>

#include "tests/unit/zoltctl/failure_of.h"

using namespace ctl;

namespace {

using Lines = std::vector<std::string>;

/// The event of the last item.
Dialogue::Event feedAll(Dialogue& dialogue, const Lines& items) {
    Dialogue::Event event;
    for (const std::string& item : items) {
        event = dialogue.feed(item);
    }
    return event;
}

}  // namespace

TEST(CtlDialogue, ReplyEndsWithThePrompt) {
    Dialogue dialogue("\r\n");
    EXPECT_FALSE(feedAll(dialogue, {"CIA: MASK is GOT from card", "AMV:0xF:0x0F"}).reply);
    EXPECT_EQ(dialogue.lines().size(), 2U);
    const auto reply = dialogue.feed(">").reply;
    ASSERT_TRUE(reply);
    EXPECT_EQ(reply->lines, (Lines{"CIA: MASK is GOT from card", "AMV:0xF:0x0F"}));
    EXPECT_FALSE(reply->unknown);
    EXPECT_TRUE(dialogue.lines().empty());
}

TEST(CtlDialogue, UnknownCommandIsOneItemWithItsPrompt) {
    for (const std::string separator : {"\r\n", "\n", "", ";"}) {
        Dialogue dialogue(separator);
        const auto reply = dialogue.feed("CIE: UNKNOWN COMMAND " + separator + ">").reply;
        ASSERT_TRUE(reply) << separator;
        EXPECT_TRUE(reply->unknown);
        EXPECT_EQ(reply->lines, Lines{"CIE: UNKNOWN COMMAND "});
    }
}

TEST(CtlDialogue, RefusedIoCommandIsNoReply) {
    Dialogue dialogue("\r\n");
    EXPECT_FALSE(dialogue.feed("COE:Illegal command -> zzz").unasked);
    const auto event = dialogue.feed(">");
    EXPECT_FALSE(event.reply);
    EXPECT_EQ(event.unasked, "COE:Illegal command -> zzz");
    EXPECT_TRUE(feedAll(dialogue, {"CIA: DRIVER VERSION 1.20", ">"}).reply);
}

TEST(CtlDialogue, RefusedIoCommandMayBeCutByACarriageReturn) {
    Dialogue dialogue("");
    EXPECT_EQ(feedAll(dialogue, {"COE:Illegal command -> zz", "z", ">"}).unasked,
              "COE:Illegal command -> zz\rz");
}

TEST(CtlDialogue, ReplyWithoutEndIsNoneOfTheDaemons) {
    Dialogue dialogue("\r\n");
    EXPECT_EQ(failureOf([&] {
                  for (int i = 0; i <= 2000; ++i) {
                      dialogue.feed("x");
                  }
              }),
              "7 the answer is none of zolt's: it has no end");
}

TEST(CtlSeparator, IsFoundInTheAnswerByteByByte) {
    for (const std::string separator : {"\r\n", "\n", "\r", "", ";", "##"}) {
        const std::string whole = "CIA: DRIVER VERSION 1.20" + separator + "\r>" + separator + "\r";
        for (std::size_t size = 0; size < whole.size(); ++size) {
            EXPECT_FALSE(findSeparator(whole.substr(0, size))) << separator << size;
        }
        const auto found = findSeparator(whole);
        ASSERT_TRUE(found) << separator;
        EXPECT_TRUE(found->known);
        EXPECT_EQ(found->outSeparator, separator);
    }
}

TEST(CtlSeparator, IsFoundInTheUnknownCommandAnswer) {
    for (const std::string separator : {"\r\n", "\n", "\r", "", ";"}) {
        const auto found =
            findSeparator("CIE: UNKNOWN COMMAND " + separator + ">" + separator + "\r");
        ASSERT_TRUE(found) << separator;
        EXPECT_FALSE(found->known);
        EXPECT_EQ(found->outSeparator, separator);
    }
}

TEST(CtlSeparator, IsFoundBetweenRefusedIoCommands) {
    const std::string refusal = "COE:Illegal command -> zzz\r\n\r>\r\n\r";
    const auto found = findSeparator(refusal + "CIA: DRIVER VERSION 1.20\r\n\r>\r\n\r" + refusal);
    ASSERT_TRUE(found);
    EXPECT_TRUE(found->known);
    EXPECT_EQ(found->outSeparator, "\r\n");
    EXPECT_FALSE(findSeparator(refusal));
}

TEST(CtlSeparator, ForeignAnswerIsRefused) {
    EXPECT_EQ(failureOf([] { findSeparator("hello\r\n\r>\r\n\r"); }),
              "7 the answer to DRVVER is none of zolt's: \"hello\"");
}

TEST(CtlSeparator, AnswerWithoutEndIsRefused) {
    std::string flood;
    for (int i = 0; i < 1500; ++i) {
        flood += "hello\r\n\r" + std::string(40, 'x') + "\r\n\r";
    }
    EXPECT_EQ(failureOf([&] { findSeparator(flood); }),
              "7 the answer to DRVVER is none of zolt's: it has no end");
}
