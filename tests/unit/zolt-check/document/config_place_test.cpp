#include "apps/zolt-check/document/config_place.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using namespace zolt_check;

std::string text(const ConfigPlace& place) {
    return std::to_string(place.line) + ":" + std::to_string(place.column);
}

TEST(Places, CountLinesAndCharactersFrom1) {
    ConfigPlaces places(
        "ab\nc\xC3\xA9"
        "d",
        ConfigEncoding::kUtf8);
    EXPECT_EQ(text(places.at(0)), "1:1");
    EXPECT_EQ(text(places.at(1)), "1:2");
    EXPECT_EQ(text(places.at(3)), "2:1");
    EXPECT_EQ(text(places.at(6)), "2:3");
}

TEST(Places, OfASmallerOffsetAreFoundToo) {
    ConfigPlaces places("ab\ncd", ConfigEncoding::kUtf8);
    EXPECT_EQ(text(places.at(4)), "2:2");
    EXPECT_EQ(text(places.at(1)), "1:2");
}

TEST(Places, BeyondTheEndAreTheEnd) {
    ConfigPlaces places("ab\nc", ConfigEncoding::kUtf8);
    EXPECT_EQ(text(places.at(1000)), "2:2");
    EXPECT_EQ(text(ConfigPlaces("", ConfigEncoding::kUtf8).at(5)), "1:1");
}

TEST(Places, AfterBlanks) {
    ConfigPlaces places("a \r\n\t b", ConfigEncoding::kUtf8);
    EXPECT_EQ(text(places.afterBlanks(1)), "2:3");
    EXPECT_EQ(text(places.afterBlanks(7)), "2:4");
}

TEST(Places, TakeOffsetsOfTheUtf8FormInEveryEncoding) {
    // An e with an accent: one byte in the file, two in UTF-8.
    EXPECT_EQ(text(ConfigPlaces("\xE9"
                                "b",
                                ConfigEncoding::kLatin1)
                       .at(2)),
              "1:2");
    // The euro sign: two bytes in the file, three in UTF-8.
    EXPECT_EQ(text(ConfigPlaces("\xAC\x20"
                                "b",
                                ConfigEncoding::kUtf16Le)
                       .at(3)),
              "1:2");
}

TEST(Places, DoNotCountAByteOrderMark) {
    EXPECT_EQ(text(ConfigPlaces("\xEF\xBB\xBF"
                                "ab",
                                ConfigEncoding::kUtf8)
                       .at(4)),
              "1:2");
}

}  // namespace
