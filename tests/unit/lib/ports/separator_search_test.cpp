#include "lib/ports/separator_search.h"

#include <gtest/gtest.h>

#include "tests/unit/lib/ports/error_of.h"

using namespace zolt_ports;

TEST(SeparatorSearch, IsFoundInTheAnswerByteByByte) {
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

TEST(SeparatorSearch, IsFoundInTheUnknownCommandAnswer) {
    for (const std::string separator : {"\r\n", "\n", "\r", "", ";"}) {
        const auto found =
            findSeparator("CIE: UNKNOWN COMMAND " + separator + ">" + separator + "\r");
        ASSERT_TRUE(found) << separator;
        EXPECT_FALSE(found->known);
        EXPECT_EQ(found->outSeparator, separator);
    }
}

TEST(SeparatorSearch, IsFoundBetweenRefusedIoCommands) {
    const std::string refusal = "COE:Illegal command -> zzz\r\n\r>\r\n\r";
    const auto found = findSeparator(refusal + "CIA: DRIVER VERSION 1.20\r\n\r>\r\n\r" + refusal);
    ASSERT_TRUE(found);
    EXPECT_TRUE(found->known);
    EXPECT_EQ(found->outSeparator, "\r\n");
    EXPECT_FALSE(findSeparator(refusal));
}

TEST(SeparatorSearch, ForeignAnswerIsRefused) {
    EXPECT_EQ(errorOf(Reason::kNotZolt, [] { findSeparator("hello\r\n\r>\r\n\r"); }),
              "the answer to DRVVER does not look like zolt: \"hello\"");
}

TEST(SeparatorSearch, AnswerWithoutEndIsRefused) {
    std::string flood;
    for (int i = 0; i < 1500; ++i) {
        flood += "hello\r\n\r" + std::string(40, 'x') + "\r\n\r";
    }
    EXPECT_EQ(errorOf(Reason::kNotZolt, [&] { findSeparator(flood); }),
              "the answer to DRVVER does not look like zolt: it has no end");
}
