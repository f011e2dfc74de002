#include "lib/ports/items.h"

#include <gtest/gtest.h>

#include "tests/unit/lib/ports/error_of.h"

using namespace zolt_ports;

namespace {

template <typename Reader>
std::vector<std::string> all(Reader& reader) {
    std::vector<std::string> found;
    while (const auto item = reader.next()) {
        found.push_back(*item);
    }
    return found;
}

using Texts = std::vector<std::string>;

/// The text for an item of many "x".
const std::string kTooLong =
    "the answer does not look like zolt: a line without end, \"" + std::string(60, 'x') + "...\"";

}  // namespace

TEST(Items, EndWithTheSeparatorAndOneCarriageReturn) {
    ItemReader items("\r\n");
    items.feed("CIA: X\r\n\r>\r\n");
    EXPECT_EQ(all(items), Texts{"CIA: X"});
    EXPECT_EQ(items.rest(), ">\r\n");
    items.feed("\r");
    EXPECT_EQ(all(items), Texts{">"});
    EXPECT_EQ(items.rest(), "");
}

TEST(Items, ComeByteByByteAsWell) {
    for (const std::string separator : {"\r\n", "\n", "\r", "", ";"}) {
        ItemReader items(separator);
        Texts found;
        for (const char byte : "one" + separator + "\r>" + separator + "\r") {
            items.feed(std::string(1, byte));
            for (const std::string& item : all(items)) {
                found.push_back(item);
            }
        }
        EXPECT_EQ(found, (Texts{"one", ">"})) << separator;
    }
}

TEST(Items, KeepACarriageReturnOfTheirOwn) {
    ItemReader items("\r\n");
    items.feed("COE:Illegal command -> zzz\r\r\n\r");
    EXPECT_EQ(all(items), Texts{"COE:Illegal command -> zzz\r"});
}

TEST(Items, WithoutEndDoNotLookLikeZolt) {
    ItemReader items("\r\n");
    // The last two bytes may begin the end of the item.
    items.feed(std::string(4096 + 2, 'x'));
    EXPECT_EQ(items.next(), std::nullopt);
    items.feed("x");
    EXPECT_EQ(errorOf(Reason::kNotZolt, [&] { items.next(); }), kTooLong);
}

TEST(Items, AreTooLongInOnePieceAsInMany) {
    const std::string longest = std::string(4096, 'x');
    for (const std::size_t piece : {std::size_t{1}, std::size_t{5000}}) {
        for (const std::string& item : {longest, longest + "x"}) {
            ItemReader items("\r\n");
            const std::string bytes = item + "\r\n\r";
            Texts found;
            const auto read = [&] {
                for (std::size_t at = 0; at < bytes.size(); at += piece) {
                    items.feed(bytes.substr(at, piece));
                    for (const std::string& one : all(items)) found.push_back(one);
                }
            };
            if (item == longest) {
                read();
                EXPECT_EQ(found, Texts{longest}) << piece;
            } else {
                EXPECT_EQ(errorOf(Reason::kNotZolt, read), kTooLong) << piece;
            }
        }
    }
}

TEST(Lines, EndWithAnyOfTheEnds) {
    LineReader lines({"##", ""});
    lines.feed("a3b0d40\r\n\ra3b0d00##\ra5b1dFB\na5b1dFF#");
    EXPECT_EQ(all(lines), (Texts{"a3b0d40", "a3b0d00", "a5b1dFB"}));
    lines.feed("#");
    EXPECT_EQ(all(lines), Texts{"a5b1dFF"});
}

TEST(Lines, ComeByteByByteAsWell) {
    for (const std::string separator : {"\r\n", "\n", "\r", "##", "\r\n>", "#;\r\n", "\r\r\n"}) {
        LineReader lines({separator});
        Texts found;
        for (const char byte : "one" + separator + "\rtwo" + separator + "\r") {
            lines.feed(std::string(1, byte));
            for (const std::string& line : all(lines)) {
                found.push_back(line);
            }
        }
        EXPECT_EQ(found, (Texts{"one", "two"})) << separator;
    }
}

TEST(Lines, DoNotWaitForTheRestOfALongerEnd) {
    LineReader lines({"\r\n"});
    lines.feed("one\r");
    EXPECT_EQ(all(lines), Texts{"one"});
    lines.feed("two\n");
    EXPECT_EQ(all(lines), Texts{"two"});
}

TEST(Lines, OfTheGreatestLengthMayHaveTheirEndInPieces) {
    const std::string longest(4096, 'x');
    LineReader lines({"##"});
    lines.feed(longest + "#");
    EXPECT_EQ(lines.next(), std::nullopt);
    lines.feed("#");
    EXPECT_EQ(lines.next(), longest);
}

TEST(Lines, WithoutEndDoNotLookLikeZolt) {
    LineReader lines({});
    lines.feed(std::string(4097, 'x'));
    EXPECT_EQ(errorOf(Reason::kNotZolt, [&] { lines.next(); }), kTooLong);
    LineReader ended({});
    ended.feed(std::string(4097, 'x') + "\r");
    EXPECT_EQ(errorOf(Reason::kNotZolt, [&] { ended.next(); }), kTooLong);
}

TEST(Banner, IsFoundAfterWhatAnEarlierClientLeft) {
    BannerFinder banner("ready\r\n\r");
    EXPECT_FALSE(banner.feed("old\r\n\rrea"));
    EXPECT_TRUE(banner.begun());
    EXPECT_FALSE(banner.feed("dy\r\n"));
    EXPECT_TRUE(banner.feed("\rnew"));
    EXPECT_EQ(banner.before(), "old\r\n\r");
    EXPECT_EQ(banner.after(), "new");
}

TEST(Banner, IsNotBegunByOtherBytes) {
    BannerFinder banner("ready\r\n\r");
    EXPECT_FALSE(banner.begun());
    banner.feed("SSH-2.0\r\n");
    EXPECT_FALSE(banner.begun());
}

TEST(Banner, IsFoundAfterVeryManyBytes) {
    BannerFinder banner("ready");
    for (int i = 0; i < 40; ++i) {
        EXPECT_FALSE(banner.feed(std::string(4096, 'x')));
    }
    EXPECT_EQ(banner.before().size(), 65536U);
    EXPECT_TRUE(banner.feed("ready"));
}
