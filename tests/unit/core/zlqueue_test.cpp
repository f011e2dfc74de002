#include "core/zlqueue.h"

#include <gtest/gtest.h>

#include <map>
#include <optional>
#include <thread>
#include <vector>

#include "tests/support/wait.h"

namespace {

ByteList listOf(const std::string& text) {
    return {text.begin(), text.end()};
}

TEST(MessageQueue, AnEmptyQueueGivesAnEmptyList) {
    ZLQUEUE queue;
    EXPECT_TRUE(queue.IsEmpty());
    EXPECT_EQ(queue.DeQueue(), ByteList{});
    EXPECT_EQ(queue.DeQueue(), ByteList{});
    EXPECT_TRUE(queue.IsEmpty());
    queue.ToQueue(listOf("a"));
    EXPECT_EQ(queue.DeQueue(), listOf("a"));
}

TEST(MessageQueue, ItemsLeaveInTheirOrder) {
    ZLQUEUE queue;
    queue.ToQueue(listOf("one"));
    queue.ToQueue(listOf("two"));
    EXPECT_EQ(queue.DeQueue(), listOf("one"));
    queue.ToQueue(listOf("three"));
    EXPECT_EQ(queue.DeQueue(), listOf("two"));
    EXPECT_FALSE(queue.IsEmpty());
    EXPECT_EQ(queue.DeQueue(), listOf("three"));
    EXPECT_TRUE(queue.IsEmpty());
}

TEST(MessageQueue, ItemsOfTwoThreadsLeaveAsTheyCame) {
    ZLQUEUE queue;
    for (const std::string text : {"first", "second", "third"}) {
        std::thread([&] { queue.ToQueue(listOf(text)); }).join();
    }
    EXPECT_EQ(queue.DeQueue(), listOf("first"));
    EXPECT_EQ(queue.DeQueue(), listOf("second"));
    EXPECT_EQ(queue.DeQueue(), listOf("third"));
}

TEST(MessageQueue, AnEmptyItemIsAnItem) {
    ZLQUEUE queue;
    queue.ToQueue({});
    EXPECT_FALSE(queue.IsEmpty());
    EXPECT_EQ(queue.DeQueue(), ByteList{});
    EXPECT_TRUE(queue.IsEmpty());
}

TEST(MessageQueue, TheNextItemIsTakenOrThereIsNone) {
    ZLQUEUE queue;
    EXPECT_EQ(queue.takeNext(), std::nullopt);
    queue.ToQueue({});
    queue.ToQueue(listOf("two"));
    EXPECT_EQ(queue.takeNext(), ByteList{});
    EXPECT_EQ(queue.takeNext(), listOf("two"));
    EXPECT_EQ(queue.takeNext(), std::nullopt);
}

TEST(MessageQueue, AnItemIsACopy) {
    ZLQUEUE queue;
    ByteList item{'a', '\0', static_cast<char>(0xFF)};
    const ByteList before = item;
    queue.ToQueue(item);
    item.front() = 'b';
    item.clear();
    EXPECT_EQ(queue.DeQueue(), before);
}

TEST(MessageQueue, NeitherItemsNorTheirLengthAreBounded) {
    constexpr std::size_t kLength = 100'000;
    constexpr int kItems = 20'000;
    ZLQUEUE queue;
    queue.ToQueue(ByteList(kLength, 'x'));
    for (int i = 0; i < kItems; ++i) {
        queue.ToQueue({static_cast<char>(i % 100)});
    }
    EXPECT_EQ(queue.DeQueue().size(), kLength);
    for (int i = 0; i < kItems; ++i) {
        ASSERT_EQ(queue.DeQueue(), ByteList{static_cast<char>(i % 100)});
    }
    EXPECT_TRUE(queue.IsEmpty());
}

TEST(MessageQueue, ManyWritersAndOneReaderLoseNothing) {
    constexpr int kWriters = 4;
    constexpr int kItems = 2000;
    ZLQUEUE queue;
    std::vector<std::jthread> writers;
    for (int writer = 0; writer < kWriters; ++writer) {
        writers.emplace_back([&queue, writer] {
            for (int i = 0; i < kItems; ++i) {
                queue.ToQueue(listOf(std::to_string(writer) + std::to_string(i)));
            }
        });
    }
    std::map<char, int> next;
    int taken = 0;
    support::waitUntil([&] {
        while (!queue.IsEmpty()) {
            const ByteList item = queue.DeQueue();
            const std::string text(item.begin(), item.end());
            EXPECT_EQ(text.substr(1), std::to_string(next[text[0]]++));
            ++taken;
        }
        return taken == kWriters * kItems;
    });
    EXPECT_EQ(taken, kWriters * kItems);
    EXPECT_EQ(next.size(), static_cast<std::size_t>(kWriters));
}

}  // namespace
