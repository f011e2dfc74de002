#include "ports/framing.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>

namespace {

/// What a read of `bytes` yields.
std::string received(FramingMode mode, const std::string& bytes) {
    std::array<char, framing::kReadSize + 1> buffer{};
    std::copy(bytes.begin(), bytes.end(), buffer.begin());
    const ByteList item = framing::received(mode, buffer.data());
    return {item.begin(), item.end()};
}

std::string sent(FramingMode mode, const std::string& bytes) {
    return framing::toSend(mode, ByteList(bytes.begin(), bytes.end()));
}

/// A text with 0 bytes in it.
template <std::size_t size>
std::string text(const char (&literal)[size]) {
    return {literal, size - 1};
}

TEST(TextFraming, AChunkIsOneItemSeparatorsIncluded) {
    EXPECT_EQ(received(FramingMode::kText, "HELP\r\n"), "HELP\r\n");
    EXPECT_EQ(received(FramingMode::kText, "HELP\r\nEXIT\r\n"), "HELP\r\nEXIT\r\n");
}

TEST(TextFraming, AChunkIsCutAtItsFirstZeroByte) {
    EXPECT_EQ(received(FramingMode::kText, text("HE\0LP\0")), "HE");
    EXPECT_EQ(received(FramingMode::kText, text("\0HELP")), "");
}

TEST(TextFraming, TheLongestChunkArrivesWhole) {
    const std::string chunk(framing::kReadSize, 'x');
    EXPECT_EQ(received(FramingMode::kText, chunk), chunk);
}

TEST(TextFraming, EveryByteButZeroArrives) {
    std::string chunk;
    for (int byte = 1; byte < 256; ++byte) chunk.push_back(static_cast<char>(byte));
    EXPECT_EQ(received(FramingMode::kText, chunk), chunk);
}

TEST(TextFraming, ACarriageReturnFollowsEachItem) {
    EXPECT_EQ(sent(FramingMode::kText, "ab"), "ab\r");
    EXPECT_EQ(sent(FramingMode::kText, "ab\r\n"), "ab\r\n\r");
    EXPECT_EQ(sent(FramingMode::kText, ""), "\r");
    EXPECT_EQ(sent(FramingMode::kText, text("a\0b")), text("a\0b\r"));
}

TEST(TextFraming, LongItemsAreSentWholeWithOneCarriageReturn) {
    for (const std::size_t size : {254U, 255U, 256U, 280U, 5000U}) {
        EXPECT_EQ(sent(FramingMode::kText, std::string(size, 'x')), std::string(size, 'x') + "\r");
    }
}

TEST(BinaryFraming, ACountLeadsTheItem) {
    EXPECT_EQ(received(FramingMode::kBinary, text("\3abcd")), "abc");
    EXPECT_EQ(received(FramingMode::kBinary, text("\3a\0c")), text("a\0c"));
    EXPECT_EQ(received(FramingMode::kBinary, text("\0abc")), "");
}

TEST(BinaryFraming, MissingBytesAreZero) {
    EXPECT_EQ(received(FramingMode::kBinary, text("\4ab")), text("ab\0\0"));
}

TEST(BinaryFraming, TheCountIsSigned) {
    const std::string rest(framing::kReadSize - 1, 'x');
    EXPECT_EQ(received(FramingMode::kBinary, "\x7F" + rest), std::string(127, 'x'));
    EXPECT_EQ(received(FramingMode::kBinary, "\x80" + rest), "");
    EXPECT_EQ(received(FramingMode::kBinary, "\xFF" + rest), "");
}

TEST(BinaryFraming, ALengthByteGoesOutAheadOfTheItem) {
    EXPECT_EQ(sent(FramingMode::kBinary, "abc"), "\3abc");
    EXPECT_EQ(sent(FramingMode::kBinary, ""), text("\0"));
    EXPECT_EQ(sent(FramingMode::kBinary, std::string(200, 'x')), "\xC8" + std::string(200, 'x'));
}

TEST(BinaryFraming, TheLengthByteIsTheLowByte) {
    EXPECT_EQ(sent(FramingMode::kBinary, std::string(256, 'x')),
              text("\0") + std::string(256, 'x'));
    EXPECT_EQ(sent(FramingMode::kBinary, std::string(259, 'x')), "\3" + std::string(259, 'x'));
}

}  // namespace
