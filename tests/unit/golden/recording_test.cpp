#include "tests/golden/recording.h"

#include <gtest/gtest.h>

namespace golden {
namespace {

std::vector<std::string> written(const std::vector<Item>& items) {
    std::vector<std::string> lines;
    for (const auto& item : items) lines.push_back(writeItem(item));
    return lines;
}

TEST(Recording, ChannelsComeInAFixedOrder) {
    Recording recording;
    recording.add({"exit", ItemKind::kLine, "status 0"});
    recording.add({"io", ItemKind::kBytes, "a"});
    recording.add({"bus", ItemKind::kLine, "one"});
    recording.add({"log", ItemKind::kLine, "[INF] comm timeout /dev/ttyUSB0"});
    recording.add({"log", ItemKind::kLine, "[INF] zolt is started"});
    EXPECT_EQ(written(recording.endStep()),
              (std::vector<std::string>{"log    [INF] zolt is started",
                                        "log    [INF] comm timeout /dev/ttyUSB0", "bus    one",
                                        "io     \"a\"", "exit   status 0"}));
}

TEST(Recording, RepliesAreCutAfterTheirCarriageReturn) {
    Recording recording;
    recording.add({"cae", ItemKind::kBytes, "one\r\ntwo\r\n"});
    recording.add({"cae", ItemKind::kBytes, "\r>\r\n\r"});
    EXPECT_EQ(
        written(recording.endStep()),
        (std::vector<std::string>{"cae    \"one\\r\\ntwo\\r\\n\\r\"", "cae    \">\\r\\n\\r\""}));
}

TEST(Recording, ThreeEqualLogLinesInARowBecomeOneAlsoOverSteps) {
    const Item none{"log", ItemKind::kLine, "[ERR] ttyUSB devices couldn't be found"};
    Recording recording;
    EXPECT_TRUE(recording.add(none));
    EXPECT_TRUE(recording.add(none));
    EXPECT_TRUE(recording.add(none));
    EXPECT_FALSE(recording.add(none));
    EXPECT_EQ(written(recording.endStep()), (std::vector<std::string>{"log+   " + none.text}));
    EXPECT_FALSE(recording.add(none));
    EXPECT_EQ(written(recording.endStep()), std::vector<std::string>());
}

TEST(Recording, TwoEqualLogLinesAreKept) {
    const Item attempt{"log", ItemKind::kLine, "[INF] try to catch hardware on /dev/ttyUSB0"};
    Recording recording;
    recording.add(attempt);
    recording.add(attempt);
    EXPECT_EQ(recording.endStep(), (std::vector<Item>{attempt, attempt}));
}

TEST(Recording, EqualFramesInARowAreKept) {
    const Item frame{"bus", ItemKind::kLine, "host> 01 | 30"};
    Recording recording;
    recording.add(frame);
    recording.add(frame);
    EXPECT_EQ(recording.endStep().size(), 2U);
}

}  // namespace
}  // namespace golden
