#include "core/logger.h"

#include <gtest/gtest.h>
#include <stdlib.h>
#include <time.h>

#include <string>
#include <thread>
#include <vector>

#include "tests/support/files.h"
#include "tests/support/temporary_folder.h"
#include "tests/support/wait.h"
#include "tests/unit/core/system_calls.h"

namespace {

using support::readFile;
using support::splitLines;

/// 2001-02-03 04:05:06 in the local time of the tests.
constexpr time_t kNow = 981'165'906;
constexpr const char* kStamp = "2001-02-03 04:05:06";

class Logger : public testing::Test {
  protected:
    Logger() {
        // Two hours east, so that local time and universal time differ.
        setenv("TZ", "<+02>-2", 1);
        tzset();
        logger_.fileName = path_;
    }
    ~Logger() override {
        unsetenv("TZ");
        tzset();
    }

    std::string content() const { return readFile(path_); }

    support::TemporaryFolder folder_;
    std::string path_ = folder_.file("zolt.log");
    LOGGER logger_;
};

TEST_F(Logger, ALineHasTimeTagAndText) {
    const system_calls::FixedClock clock(kNow);
    logger_.LOG("INF", "zolt is started", 1);
    EXPECT_EQ(content(), std::string(kStamp) + " [INF] zolt is started\n");
}

TEST_F(Logger, TheTimeFollowsAChangedTimeZone) {
    const system_calls::FixedClock clock(kNow);
    logger_.info("a");
    setenv("TZ", "<-03>3", 1);
    logger_.info("b");
    EXPECT_EQ(content(), "2001-02-03 04:05:06 [INF] a\n2001-02-02 23:05:06 [INF] b\n");
}

TEST_F(Logger, TheTimeIsTheRealOne) {
    const time_t before = time(nullptr);
    logger_.info("zolt is started");
    const time_t after = time(nullptr);
    tm parts{};
    const std::string line = content();
    const char* rest = strptime(line.c_str(), "%Y-%m-%d %H:%M:%S", &parts);
    ASSERT_NE(rest, nullptr);
    EXPECT_STREQ(rest, " [INF] zolt is started\n");
    const time_t stamp = mktime(&parts);
    EXPECT_GE(stamp, before);
    EXPECT_LE(stamp, after);
}

TEST_F(Logger, TheTwoTagsAreWrittenAtLevelOne) {
    const system_calls::FixedClock clock(kNow);
    logger_.level = 1;
    logger_.info("a");
    logger_.error("b");
    logger_.level = 2;
    logger_.info("c");
    logger_.error("d");
    EXPECT_EQ(content(), std::string(kStamp) + " [INF] a\n" + kStamp + " [ERR] b\n");
}

TEST_F(Logger, AMessageIsJoinedOfItsPieces) {
    const system_calls::FixedClock clock(kNow);
    logger_.info("signal ", std::to_string(15), " on ", "", "serial interface");
    logger_.error(std::string("no "), "file");
    EXPECT_EQ(content(), std::string(kStamp) + " [INF] signal 15 on serial interface\n" + kStamp +
                             " [ERR] no file\n");
}

TEST_F(Logger, TheTextIsWrittenUnchanged) {
    const system_calls::FixedClock clock(kNow);
    logger_.LOG("%s", "100 % \xFF %n\nnext", 1);
    EXPECT_EQ(content(), std::string(kStamp) + " [%s] 100 % \xFF %n\nnext\n");
    logger_.LOG("", "", 1);
    EXPECT_EQ(splitLines(content()).back(), std::string(kStamp) + " [] ");
}

TEST_F(Logger, ALineIsCutAt999Characters) {
    const std::string longest(999, 'x');
    const std::string front = std::string(kStamp) + " [INF] ";
    const system_calls::FixedClock clock(kNow);
    logger_.info(longest);
    EXPECT_EQ(content(), (front + longest).substr(0, 998) + "\n");
    logger_.info(std::string(998 - front.size(), 'y'));
    EXPECT_EQ(splitLines(content()).back(), front + std::string(998 - front.size(), 'y'));
    logger_.info(std::string(100'000, 'z'));
    EXPECT_EQ(splitLines(content()).back().size(), 998U);
}

TEST_F(Logger, MessagesOfAtLeastTheLevelAreWritten) {
    for (const std::int32_t level : {-5, 0, 1}) {
        logger_.level = level;
        logger_.LOG("INF", std::to_string(level), 1);
    }
    EXPECT_EQ(splitLines(content()).size(), 3U);
    logger_.level = 5;
    logger_.LOG("INF", "below", 4);
    logger_.LOG("INF", "equal", 5);
    logger_.LOG("INF", "above", 6);
    const auto lines = splitLines(content());
    ASSERT_EQ(lines.size(), 5U);
    EXPECT_NE(lines[3].find("equal"), std::string::npos);
    EXPECT_NE(lines[4].find("above"), std::string::npos);
}

TEST_F(Logger, ANewLoggerWritesAllMessagesNowhere) {
    const LOGGER fresh;
    EXPECT_EQ(fresh.level, 0);
    EXPECT_EQ(fresh.fileName, "");
}

TEST_F(Logger, ACopyTakesLevelAndFile) {
    logger_.level = 1;
    LOGGER constructed(logger_);
    LOGGER assigned;
    assigned = logger_;
    logger_.level = 9;
    logger_.fileName.clear();
    for (LOGGER* copy : {&constructed, &assigned}) {
        EXPECT_EQ(copy->level, 1);
        EXPECT_EQ(copy->fileName, path_);
        copy->info("from a copy");
    }
    EXPECT_EQ(splitLines(content()).size(), 2U);
}

TEST_F(Logger, ACopyLogsWhileAnotherThreadHoldsTheOriginal) {
    LOGGER before(logger_);
    system_calls::HeldOpen held(path_);
    std::jthread holder([&] { logger_.info("original"); });
    ASSERT_TRUE(held.isReached());
    LOGGER during(logger_);
    before.info("copy made before");
    during.info("copy made meanwhile");
    EXPECT_EQ(splitLines(content()).size(), 2U);
    held.release();
    holder.join();
    EXPECT_EQ(splitLines(content()).size(), 3U);
}

TEST_F(Logger, TheTimeIsReadBeforeTheLoggerIsFree) {
    system_calls::FixedClock clock(kNow);
    system_calls::HeldOpen held(path_);
    std::jthread holder([&] { logger_.info("holder"); });
    ASSERT_TRUE(held.isReached());
    clock.set(kNow + 1);
    const int readings = system_calls::clockReadings();
    std::jthread second([&] { logger_.info("waited"); });
    ASSERT_TRUE(support::waitUntil([&] { return system_calls::clockReadings() > readings; }));
    clock.set(kNow + 30);
    // The second message has read its time and waits for the lock. Without the lock its line
    // would be there, because only the first opening is held.
    EXPECT_EQ(content(), "");
    held.release();
    holder.join();
    second.join();
    EXPECT_EQ(content(), "2001-02-03 04:05:06 [INF] holder\n2001-02-03 04:05:07 [INF] waited\n");
}

TEST_F(Logger, LinesOfManyCopiesAreWhole) {
    constexpr int kThreads = 4;
    constexpr int kLines = 200;
    const system_calls::FixedClock clock(kNow);
    std::vector<std::jthread> threads;
    for (int i = 0; i < kThreads; ++i) {
        threads.emplace_back([copy = logger_, i]() mutable {
            for (int line = 0; line < kLines; ++line) {
                copy.info(std::string(900, static_cast<char>('a' + i)));
            }
        });
    }
    threads.clear();
    const auto lines = splitLines(content());
    ASSERT_EQ(lines.size(), static_cast<std::size_t>(kThreads * kLines));
    for (const std::string& line : lines) {
        ASSERT_EQ(line, std::string(kStamp) + " [INF] " + std::string(900, line.back()));
    }
}

}  // namespace
