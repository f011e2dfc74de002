#include "common/dump.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>

namespace {

std::string printedBy(const std::function<void()>& call) {
    testing::internal::CaptureStdout();
    call();
    return testing::internal::GetCapturedStdout();
}

std::string expectedItem(int byte) {
    const bool shown = byte >= 32 && byte <= 127;
    return (shown ? std::string(1, static_cast<char>(byte)) : ".") + ":" + std::to_string(byte) +
           "|";
}

TEST(Dump, AListIsPrintedWithItsSize) {
    EXPECT_EQ(printedBy([] { PrintQList({'O', 'K'}); }), "List size: 2\nContent: O:79|K:75|\n");
}

TEST(Dump, AnEmptyListIsPrintedWithoutItems) {
    EXPECT_EQ(printedBy([] { PrintQList({}); }), "List size: 0\nContent: \n");
}

TEST(Dump, ControlCharactersAndHighBytesAreShownAsDots) {
    const std::string bytes = "A\r\xC8";
    EXPECT_EQ(printedBy([&] { PrintBuffer(bytes.data(), bytes.size()); }),
              "Buffer content: A:65|.:13|.:200|\n");
}

TEST(Dump, OnlyTheCountedBytesArePrinted) {
    EXPECT_EQ(printedBy([] { PrintBuffer("ABC", 2); }), "Buffer content: A:65|B:66|\n");
    EXPECT_EQ(printedBy([] { PrintBuffer("ABC", 0); }), "Buffer content: \n");
}

TEST(Dump, TheLabelComesFirst) {
    EXPECT_EQ(printedBy([] { PrintBufferID("A", 1, "Sent"); }), "Sent Buffer content: A:65|\n");
    EXPECT_EQ(printedBy([] { PrintBufferID("A", 1, ""); }), " Buffer content: A:65|\n");
}

TEST(Dump, EveryByteHasItsItem) {
    ByteList list;
    std::string buffer;
    std::string items;
    for (int byte = 0; byte <= 255; ++byte) {
        list.push_back(static_cast<char>(byte));
        buffer += static_cast<char>(byte);
        items += expectedItem(byte);
    }
    EXPECT_EQ(printedBy([&] { PrintQList(list); }), "List size: 256\nContent: " + items + "\n");
    EXPECT_EQ(printedBy([&] { PrintBuffer(buffer.data(), buffer.size()); }),
              "Buffer content: " + items + "\n");
}

}  // namespace
