#include "lib/text/escape.h"

#include <gtest/gtest.h>

#include <stdexcept>

using namespace zolt_text;

namespace {

TEST(Escape, NamesWhatDoesNotPrint) {
    EXPECT_EQ(escape("a \"b\"\r\n\t\\"), "a \"b\"\\r\\n\\t\\\\");
    EXPECT_EQ(escape("\x01\x7f\xE9~"), "\\x01\\x7F\\xE9~");
    EXPECT_EQ(escape(""), "");
}

TEST(Escape, OfOneByteIsItsNameOrItsDigits) {
    EXPECT_EQ(escapeOf('\n'), "\\n");
    EXPECT_EQ(escapeOf('a'), "\\x61");
    EXPECT_EQ(hexEscape('\n'), "\\x0A");
}

TEST(Escape, EveryByteCanBeReadBack) {
    std::string bytes;
    for (int byte = 0; byte < 256; ++byte) {
        bytes += static_cast<char>(byte);
    }
    EXPECT_EQ(unescape(escape(bytes)), bytes);
    EXPECT_EQ(unescape("\\\"\\x0a"), "\"\n");
}

TEST(Escape, UnknownAndIncompleteEscapesAreRefused) {
    for (const char* text : {"\\", "a\\", "\\z", "\\x", "\\x1", "\\xg1", "\\x 1"}) {
        EXPECT_THROW(unescape(text), std::invalid_argument) << text;
    }
}

}  // namespace
