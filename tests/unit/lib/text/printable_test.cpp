#include "lib/text/printable.h"

#include <gtest/gtest.h>

using namespace zolt_text;

namespace {

TEST(Printable, ControlBytesAreShownAsEscapes) {
    EXPECT_EQ(printable("a\r\n\t\x1b[2J\x7f z"), "a\\r\\n\\t\\x1B[2J\\x7F z");
    EXPECT_EQ(printable(std::string(1, '\0')), "\\x00");
    EXPECT_EQ(printable("Grüße, 世界, 🐈"), "Grüße, 世界, 🐈");
}

TEST(Printable, BytesThatAreNotUtf8AreShownAsEscapes) {
    EXPECT_EQ(printable("a\xFFz"), "a\\xFFz");
    EXPECT_EQ(printable("\x9B"), "\\x9B");           // a control character of 8 bits
    EXPECT_EQ(printable("\xC2\x9B"), "\\xC2\\x9B");  // the same as UTF-8
    EXPECT_EQ(printable("\xC2\xA0"), "\xC2\xA0");
    EXPECT_EQ(printable("\xC1\x81"), "\\xC1\\x81");                    // longer than needed
    EXPECT_EQ(printable("\xE2\x82"), "\\xE2\\x82");                    // cut
    EXPECT_EQ(printable("\xED\xA0\x80"), "\\xED\\xA0\\x80");           // half a surrogate pair
    EXPECT_EQ(printable("\xF4\x90\x80\x80"), "\\xF4\\x90\\x80\\x80");  // above U+10FFFF
}

TEST(Printable, LongQuotesAreCut) {
    EXPECT_EQ(quote("abc"), "\"abc\"");
    EXPECT_EQ(quote(std::string(60, 'x')), '"' + std::string(60, 'x') + '"');
    EXPECT_EQ(quote(std::string(61, 'x')), '"' + std::string(60, 'x') + "...\"");
}

TEST(Printable, LongQuotesAreNotCutInsideACharacter) {
    for (const std::string character : {"ü", "世", "🐈"}) {
        for (std::size_t before = 60 - character.size(); before <= 60; ++before) {
            const std::string start(before, 'x');
            EXPECT_EQ(quote(start + character + "y"),
                      '"' + start + (before + character.size() == 60 ? character : "") + "...\"");
        }
    }
    // A byte that begins no character is shown as an escape, as everywhere.
    EXPECT_EQ(quote(std::string(59, 'x') + "\xE4zz"), '"' + std::string(59, 'x') + "\\xE4...\"");
    EXPECT_EQ(quote(std::string(61, '\x80')).size(), 2 + 60 * std::string("\\x80").size() + 3);
}

}  // namespace
