#include "tests/golden/comparer.h"

#include <gtest/gtest.h>

namespace golden {
namespace {

Item bytes(const char* channel, std::string text) {
    return {channel, ItemKind::kBytes, std::move(text)};
}
Item line(const char* channel, std::string text) {
    return {channel, ItemKind::kLine, std::move(text)};
}
Item logLine(std::string text) {
    return line("log", std::move(text));
}

TEST(Comparer, BytesMayComeInOtherPiecesThanWritten) {
    Comparer comparer;
    comparer.expect({bytes("io", "ab"), bytes("io", "cd")});
    EXPECT_EQ(comparer.take(bytes("io", "a")), std::nullopt);
    EXPECT_FALSE(comparer.complete());
    EXPECT_EQ(comparer.take(bytes("io", "bcd")), std::nullopt);
    EXPECT_TRUE(comparer.complete());
}

TEST(Comparer, WrongByteIsReportedWithTheExpectedOne) {
    Comparer comparer;
    comparer.expect({bytes("io", "abc\r")});
    const auto problem = comparer.take(bytes("io", "abd\r"));
    ASSERT_TRUE(problem.has_value());
    EXPECT_EQ(*problem, "  expected: io     \"abc\\r\"\n  got:      io     \"abd\\r\"");
}

TEST(Comparer, SurplusByteIsRefused) {
    Comparer comparer;
    comparer.expect({bytes("io", "abc")});
    EXPECT_NE(comparer.take(bytes("io", "abcd")), std::nullopt);
}

TEST(Comparer, WrongLineWrongOrderAndLeftOverAreRefused) {
    Comparer comparer;
    comparer.expect({line("bus", "one"), line("bus", "two")});
    EXPECT_NE(comparer.take(line("bus", "two")), std::nullopt);
    EXPECT_EQ(comparer.take(line("bus", "one")), std::nullopt);
    EXPECT_EQ(comparer.take(line("bus", "two")), std::nullopt);
    EXPECT_NE(comparer.take(line("bus", "two")), std::nullopt);
}

TEST(Comparer, ChannelsAreIndependent) {
    Comparer comparer;
    comparer.expect({line("bus", "one"), bytes("io", "a")});
    EXPECT_EQ(comparer.take(bytes("io", "a")), std::nullopt);
    EXPECT_EQ(comparer.take(line("bus", "one")), std::nullopt);
    EXPECT_NE(comparer.take(line("card", "one")), std::nullopt);
}

TEST(Comparer, MissingItemsAreListed) {
    Comparer comparer;
    comparer.expect({line("bus", "one"), bytes("io", "abc")});
    EXPECT_EQ(comparer.take(bytes("io", "ab")), std::nullopt);
    EXPECT_EQ(comparer.missing(), (std::vector<std::string>{"bus    one", "io     \"c\""}));
}

TEST(Comparer, CloseHasToComeAfterTheBytes) {
    const Item closed{"io", ItemKind::kClosed, ""};
    Comparer comparer;
    comparer.expect({bytes("io", "ab"), closed});
    EXPECT_NE(comparer.take(closed), std::nullopt);
    EXPECT_EQ(comparer.take(bytes("io", "ab")), std::nullopt);
    EXPECT_EQ(comparer.take(closed), std::nullopt);
    EXPECT_TRUE(comparer.complete());
}

TEST(Comparer, RepeatedLineMayComeAgainUntilAnotherOneOfItsSource) {
    const Item none = logLine("[ERR] ttyUSB devices couldn't be found");
    Item repeated = none;
    repeated.repeats = true;
    const Item found = logLine("[INF] hardware found on /dev/ttyUSB0 version: 1.04");
    Comparer comparer;
    comparer.expect({repeated});
    EXPECT_FALSE(comparer.complete());
    EXPECT_EQ(comparer.take(none), std::nullopt);
    EXPECT_TRUE(comparer.complete());
    EXPECT_EQ(comparer.take(none), std::nullopt);
    comparer.expect({found});
    EXPECT_EQ(comparer.take(none), std::nullopt);
    EXPECT_EQ(comparer.take(found), std::nullopt);
    EXPECT_NE(comparer.take(none), std::nullopt);
}

TEST(Comparer, LogIsComparedPerSource) {
    const Item cae = logLine("[INF] CAE interface is waiting for incoming connection");
    const Item main = logLine("[INF] CAE interface listening on port 5001");
    Comparer comparer;
    comparer.expect({main, cae});
    EXPECT_EQ(comparer.take(cae), std::nullopt);
    EXPECT_EQ(comparer.take(main), std::nullopt);
    EXPECT_TRUE(comparer.complete());
}

}  // namespace
}  // namespace golden
