#include "apps/zolt-sim/cards/stream_cards.h"

#include <gtest/gtest.h>

#include <string_view>

namespace zolt_sim {
namespace {

Bytes textFrame(std::uint8_t column, std::uint8_t row, std::string_view text) {
    Bytes data{0x09, column, row};
    data.insert(data.end(), text.begin(), text.end());
    data.push_back(0x00);
    return data;
}

std::string row(const LcdCard& card, std::size_t number) {
    return card.details().at(number);
}

TEST(LcdCard, ShowsTextByColumnAndRow) {
    LcdCard card;
    EXPECT_EQ(card.output(textFrame(3, 1, "Tail of the cat")),
              "text at column 3 row 1 \"Tail of the cat\"");
    EXPECT_EQ(row(card, 0), "row 0 \"                    \"");
    EXPECT_EQ(row(card, 1), "row 1 \"   Tail of the cat  \"");
    EXPECT_EQ(card.output(textFrame(0, 1, "AB")), "text at column 0 row 1 \"AB\"");
    EXPECT_EQ(row(card, 1), "row 1 \"AB Tail of the cat  \"");
}

TEST(LcdCard, WritesBytesThatDoNotPrintAsHexadecimal) {
    LcdCard card;
    EXPECT_EQ(card.output(textFrame(0, 0, "a \"\x07\\\xE9")),
              "text at column 0 row 0 \"a \\x22\\x07\\x5C\\xE9\"");
}

TEST(LcdCard, CutsTextAtTheEndOfTheRow) {
    LcdCard card;
    card.output(textFrame(18, 3, "xyz"));
    EXPECT_EQ(row(card, 3), "row 3 \"                  xy\"");
}

TEST(LcdCard, AcceptsTextOutsideTheDisplayWithoutShowingIt) {
    LcdCard card;
    const auto before = card.details();
    EXPECT_EQ(card.output(textFrame(20, 0, "a")),
              "text at column 20 row 0 \"a\" (outside the display)");
    EXPECT_EQ(card.output(textFrame(0, 4, "a")),
              "text at column 0 row 4 \"a\" (outside the display)");
    EXPECT_EQ(card.details(), before);
}

TEST(LcdCard, AcceptsEmptyText) {
    LcdCard card;
    EXPECT_EQ(card.output(textFrame(0, 0, "")), "text at column 0 row 0 \"\"");
}

TEST(LcdCard, SwitchesLightCursorAndBlink) {
    LcdCard card;
    EXPECT_EQ(card.output({1}), "light on");
    EXPECT_EQ(card.output({3}), "cursor on");
    EXPECT_EQ(card.output({5}), "blink on");
    EXPECT_EQ(card.summary(), "light on, cursor on, blink on");
    EXPECT_EQ(card.output({4}), "cursor off");
    EXPECT_EQ(card.summary(), "light on, cursor off, blink on");
    EXPECT_EQ(card.output({2}), "light off");
    EXPECT_EQ(card.output({6}), "blink off");
    EXPECT_EQ(card.summary(), "light off, cursor off, blink off");
}

TEST(LcdCard, ClearsTheTextAlone) {
    LcdCard card;
    card.output({1});
    card.output(textFrame(0, 0, "a"));
    EXPECT_EQ(card.output({0}), "cleared");
    EXPECT_EQ(row(card, 0), "row 0 \"                    \"");
    EXPECT_EQ(card.summary(), "light on, cursor off, blink off");
}

TEST(LcdCard, RefusesWhatItDoesNotKnow) {
    LcdCard card;
    EXPECT_FALSE(card.output({}));
    EXPECT_FALSE(card.output({7}));
    EXPECT_FALSE(card.output({1, 1}));
    EXPECT_FALSE(card.output({9, 0, 0}));
    EXPECT_FALSE(card.output({9, 0, 0, 'a'}));
    EXPECT_FALSE(card.configure({0x01, 0x03, 0xFF}));
    EXPECT_FALSE(card.configure({0x01, 0x01, std::nullopt}));
    EXPECT_FALSE(card.configure({0x40, 0x01, std::nullopt}));
}

TEST(LcdCard, RebootsAsItsStoredOptionsSay) {
    LcdCard card;
    card.output({3});
    card.output({5});
    card.output(textFrame(0, 1, "old"));
    EXPECT_EQ(card.configure({0x01, 0x01, 0xFF})->change, "self-test FF");
    EXPECT_EQ(card.configure({0x01, 0x02, 0xFF})->change, "light at boot FF");
    EXPECT_EQ(card.configure({0x01, 0xAB, std::nullopt})->change,
              "rebooted, light on, cursor off, blink off");
    EXPECT_EQ(row(card, 0), "row 0 \"SELF TEST OK        \"");
    EXPECT_EQ(row(card, 1), "row 1 \"                    \"");
    EXPECT_EQ(row(card, 4), "self-test FF, light at boot FF");
    EXPECT_EQ(card.configure({0x01, 0x01, 0x00})->value, 0x00);
    card.configure({0x01, 0x02, 0x00});
    card.configure({0x01, 0xAB, std::nullopt});
    EXPECT_EQ(row(card, 0), "row 0 \"                    \"");
    EXPECT_EQ(card.summary(), "light off, cursor off, blink off");
}

TEST(IrCard, RemembersTheLastStream) {
    IrCard card;
    EXPECT_EQ(card.output({2, 0x43, 0x4F}), "stream 43 4F");
    EXPECT_EQ(card.summary(), "stream 43 4F");
    EXPECT_EQ(card.output({0}), "stream empty");
    EXPECT_EQ(card.summary(), "stream empty");
}

TEST(IrCard, RefusesACountThatDoesNotFit) {
    IrCard card;
    card.output({1, 0x43});
    EXPECT_FALSE(card.output({2, 0x43}));
    EXPECT_FALSE(card.output({0, 0x43}));
    EXPECT_FALSE(card.output({}));
    EXPECT_EQ(card.summary(), "stream 43");
    EXPECT_TRUE(card.configure({0x01, 0xAB, std::nullopt}));
    EXPECT_EQ(card.summary(), "stream empty");
}

}  // namespace
}  // namespace zolt_sim
