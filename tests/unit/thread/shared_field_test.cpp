#include "thread/shared_field.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdint>
#include <thread>
#include <vector>

#include "tests/unit/thread/system_calls.h"

namespace {

/// Whether the loop of `pause` rests in its next pause.
bool rests(LoopPause& pause) {
    const int before = system_calls::restsBegun();
    pause.pause(1);
    return system_calls::restsBegun() > before;
}

TEST(SharedField, IsReplacedOnlyFromTheExpectedValue) {
    SharedField<std::int32_t> field{2};
    EXPECT_FALSE(field.replace(1, 3));
    EXPECT_EQ(field, 2);
    EXPECT_TRUE(field.replace(2, 3));
    EXPECT_EQ(field, 3);
}

TEST(SharedField, OfManyReplacementsOneWins) {
    SharedField<std::int32_t> field{0};
    std::atomic<int> winners{0};
    std::vector<std::thread> threads;
    for (std::int32_t id = 1; id <= 4; ++id) {
        threads.emplace_back([&, id] { winners += field.replace(0, id) ? 1 : 0; });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(winners, 1);
    EXPECT_NE(field, 0);
}

TEST(SharedField, AStoreKeepsTheReaderFromResting) {
    LoopPause pause{std::chrono::nanoseconds(1)};
    SharedField<bool> field{false};
    field.readBy(pause);
    EXPECT_TRUE(rests(pause));
    field = true;
    EXPECT_FALSE(rests(pause));
    EXPECT_TRUE(rests(pause));
    field = SharedField<bool>(false);
    EXPECT_FALSE(rests(pause));
}

TEST(SharedField, OnlyAReplacementThatHappensKeepsTheReaderFromResting) {
    LoopPause pause{std::chrono::nanoseconds(1)};
    SharedField<std::int32_t> field{2};
    field.readBy(pause);
    field.replace(1, 3);
    EXPECT_TRUE(rests(pause));
    field.replace(2, 3);
    EXPECT_FALSE(rests(pause));
}

TEST(SharedField, ACopyHasNoReader) {
    LoopPause pause{std::chrono::nanoseconds(1)};
    SharedField<std::int32_t> field{2};
    field.readBy(pause);
    SharedField<std::int32_t> copy(field);
    copy = 3;
    EXPECT_TRUE(rests(pause));
    EXPECT_EQ(field, 2);
}

}  // namespace
