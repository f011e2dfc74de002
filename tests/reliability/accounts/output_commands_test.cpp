#include "tests/reliability/accounts/output_commands.h"

#include <gtest/gtest.h>

#include <set>

namespace reliability {
namespace {

TEST(OutputCommands, GoToOneCardAfterTheOther) {
    OutputCommands commands;
    const std::vector<std::pair<std::string, std::string>> expected{
        {"a0b0d81", "10 00 06 81 80 80 80 80 80"},
        {"a5b0d00", "10 05 02 00 FF"},
        {"aAb0d01", "10 0A 04 01 00 00 00"},
        {"a9sHS00000000", "10 09 05 04 00 00 00 00"},
        {"aElPAp0000t00000001", "10 0E 0C 09 00 00 30 30 30 30 30 30 30 31 00"},
        {"a0b1d81", "10 00 06 81 81 80 80 80 80"},
    };
    for (const auto& [line, frame] : expected) {
        const OutputCommand command = commands.next();
        EXPECT_EQ(command.line, line);
        EXPECT_EQ(command.frame, frame);
    }
}

TEST(OutputCommands, NoTwoThatAreUnderWayTogetherAreTheSame) {
    OutputCommands commands;
    std::set<std::string> frames;
    for (int i = 0; i < 2000; ++i) EXPECT_TRUE(frames.insert(commands.next().frame).second);
}

TEST(OutputCommands, WithoutStateTheyGoToTwoCards) {
    OutputCommands commands;
    EXPECT_EQ(commands.nextWithoutState().line, "a9sHS00000000");
    EXPECT_EQ(commands.nextWithoutState().line, "aElPAp0000t00000001");
    EXPECT_EQ(commands.nextWithoutState().line, "a9sHS00000002");
}

}  // namespace
}  // namespace reliability
