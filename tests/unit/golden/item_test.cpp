#include "tests/golden/item.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace golden {
namespace {

TEST(Item, BytesAreWrittenWithEscapesAndReadBack) {
    const Item item{"io", ItemKind::kBytes, std::string("a\r\n\t\\\"\0\xFF", 8)};
    EXPECT_EQ(writeItem(item), R"(io     "a\r\n\t\\\"\x00\xFF")");
    EXPECT_EQ(readItem(writeItem(item)), item);
}

TEST(Item, LineKeepsBlanksAndQuotationMarks) {
    const Item item{"card", ItemKind::kLine, "E lcd: text \"a  b\" "};
    EXPECT_EQ(writeItem(item), R"(card   E lcd: text "a  b"\x20)");
    EXPECT_EQ(readItem(writeItem(item)), item);
}

TEST(Item, AnswerOfTheBusIsALine) {
    const Item item{"sim", ItemKind::kLine, "row 1 \"Tail\""};
    EXPECT_EQ(writeItem(item), "sim    row 1 \"Tail\"");
    EXPECT_EQ(readItem(writeItem(item)), item);
}

TEST(Item, RepeatMarkAndCloseAreReadBack) {
    const Item repeated{"log", ItemKind::kLine, "[ERR] none", true};
    EXPECT_EQ(writeItem(repeated), "log+   [ERR] none");
    EXPECT_EQ(readItem("log+ [ERR] none"), repeated);
    const Item closed{"cae2", ItemKind::kClosed, ""};
    EXPECT_EQ(readItem(writeItem(closed)), closed);
}

TEST(Item, MalformedOnesAreRefused) {
    EXPECT_THROW(readItem("dmi \"a\""), std::invalid_argument);
    EXPECT_THROW(readItem("io a"), std::invalid_argument);
    EXPECT_THROW(readItem("io \"a"), std::invalid_argument);
    EXPECT_THROW(readItem("io \"\\x4\""), std::invalid_argument);
    EXPECT_THROW(readItem("io \"\\q\""), std::invalid_argument);
    EXPECT_THROW(readItem("io+ \"a\""), std::invalid_argument);
    EXPECT_THROW(readItem(""), std::invalid_argument);
}

}  // namespace
}  // namespace golden
