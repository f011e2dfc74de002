#include "thread/LoopPause.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/socket.h>

#include <array>
#include <ctime>
#include <thread>

#include "tests/support/unique_fd.h"

namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::microseconds;

/// So long that a test does not see its end: what goes on has been woken.
constexpr std::chrono::hours kForTheTest{1};

/// A loop that pauses as long as it finds nothing, and what it has seen then.
class Sleeper {
  public:
    explicit Sleeper(LoopPause& pause, int descriptor = -1)
        : thread_([this, &pause, descriptor] {
              pause.pause(1, descriptor);
              released_ = mayEnd_.load();
          }) {}

    void mayEnd() { mayEnd_ = true; }
    /// Whether the pause ended after mayEnd().
    bool endedInTime() {
        thread_.join();
        return released_;
    }

  private:
    std::atomic<bool> mayEnd_{false};
    bool released_ = false;
    std::thread thread_;
};

void letItFallAsleep() {
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
}

void add(LoopPause& pause) {
    pause.itemAdded();
    pause.wake();
}

/// Processor time of the calling thread.
std::chrono::nanoseconds processorTime() {
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return std::chrono::seconds(now.tv_sec) + std::chrono::nanoseconds(now.tv_nsec);
}

TEST(LoopPause, LastsItsTimeWithItemsAndWithout) {
    LoopPause pause(std::chrono::nanoseconds(0));
    for (const int length : {1, 49, 50, 20'000}) {
        for (int items = 0; items < 2; ++items) {
            const auto begin = Clock::now();
            pause.pause(length);
            EXPECT_GE(Clock::now() - begin, microseconds(length)) << length;
            pause.itemAdded();
        }
        pause.itemTaken();
        pause.itemTaken();
    }
}

TEST(LoopPause, ALongOneSleepsAndDoesNotEndWithAnItem) {
    constexpr std::chrono::milliseconds kLong{200};
    LoopPause pause;
    std::thread other([&pause] {
        letItFallAsleep();
        add(pause);
    });
    const auto begin = Clock::now();
    const auto before = processorTime();
    pause.pause(static_cast<std::int32_t>(microseconds(kLong).count()));
    EXPECT_LT(processorTime() - before, kLong / 2);
    EXPECT_GE(Clock::now() - begin, kLong);
    other.join();
}

TEST(LoopPause, AShortOneEndsWithAnItem) {
    LoopPause pause(kForTheTest);
    Sleeper loop(pause);
    letItFallAsleep();
    loop.mayEnd();
    add(pause);
    EXPECT_TRUE(loop.endedInTime());
}

TEST(LoopPause, AShortOneDoesNotSleepWhileThereAreItems) {
    LoopPause pause(kForTheTest);
    pause.itemAdded();
    pause.itemAdded();
    pause.pause(1);
    pause.itemTaken();
    pause.pause(1);
}

TEST(LoopPause, AShortOneSleepsAgainWhenTheItemsAreTaken) {
    LoopPause pause(kForTheTest);
    pause.itemAdded();
    pause.pause(1);
    pause.itemTaken();
    Sleeper loop(pause);
    letItFallAsleep();
    loop.mayEnd();
    add(pause);
    EXPECT_TRUE(loop.endedInTime());
}

TEST(LoopPause, AShortOneSleepsBesideItemsThatStay) {
    constexpr std::chrono::milliseconds kLongest{20};
    LoopPause pause(kLongest);
    pause.itemAdded();
    const auto begin = Clock::now();
    pause.pauseWithoutWork(1);
    EXPECT_GE(Clock::now() - begin, kLongest);
}

TEST(LoopPause, AShortOneEndsWithWhatTheDescriptorBrings) {
    std::array<int, 2> ends{};
    ASSERT_EQ(socketpair(AF_UNIX, SOCK_STREAM, 0, ends.data()), 0);
    const support::UniqueFd loopEnd(ends[0]);
    const support::UniqueFd farEnd(ends[1]);
    LoopPause pause(kForTheTest);
    Sleeper loop(pause, loopEnd.get());
    letItFallAsleep();
    loop.mayEnd();
    ASSERT_EQ(send(farEnd.get(), "x", 1, 0), 1);
    EXPECT_TRUE(loop.endedInTime());
}

TEST(LoopPause, AShortOneEndsWithoutWorkAfterTheLongestRest) {
    LoopPause pause(std::chrono::milliseconds(20));
    const auto begin = Clock::now();
    pause.pause(1);
    EXPECT_GE(Clock::now() - begin, std::chrono::milliseconds(20));
}

TEST(LoopPause, NoItemIsMissedBetweenTwoLoops) {
    constexpr int kRounds = 2000;
    LoopPause there(kForTheTest);
    LoopPause back(kForTheTest);
    std::atomic<int> sent{0};
    std::atomic<int> returned{0};
    std::thread other([&] {
        for (int taken = 0; taken < kRounds; ++taken) {
            while (sent == taken) there.pause(1);
            there.itemTaken();
            add(back);
            ++returned;
        }
    });
    for (int taken = 0; taken < kRounds; ++taken) {
        add(there);
        ++sent;
        while (returned == taken) back.pause(1);
        back.itemTaken();
    }
    other.join();
    EXPECT_EQ(returned, kRounds);
}

TEST(LoopPause, DoesNotSleepWhereNothingCouldWakeIt) {
    rlimit old{};
    ASSERT_EQ(getrlimit(RLIMIT_NOFILE, &old), 0);
    const rlimit none{0, old.rlim_max};
    ASSERT_EQ(setrlimit(RLIMIT_NOFILE, &none), 0);
    LoopPause pause(kForTheTest);
    ASSERT_EQ(setrlimit(RLIMIT_NOFILE, &old), 0);
    pause.pause(1);
}

}  // namespace
