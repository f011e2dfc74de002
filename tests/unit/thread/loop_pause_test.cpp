#include "thread/loop_pause.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/socket.h>

#include <array>
#include <functional>
#include <thread>
#include <vector>

#include "lib/os/descriptor.h"
#include "tests/support/wait.h"
#include "tests/unit/thread/background_call.h"
#include "tests/unit/thread/system_calls.h"

namespace {

using Clock = std::chrono::steady_clock;
using Lengths = std::vector<unsigned>;
using std::chrono::microseconds;

/// No test lasts until the end of such a rest: a loop that goes on was woken.
constexpr std::chrono::hours kForTheTest{1};

/// This is longer than a test waits for a call that returns, and short enough that a loop
/// that nothing wakes does not hold up the test program for ever.
constexpr std::chrono::seconds kTooLong{2 * support::kPatience};

/// Whether a loop that rests goes on after `wakeUp`.
bool endsTheRest(LoopPause& pause, const std::function<void()>& wakeUp, int descriptor = -1) {
    const int before = system_calls::restsBegun();
    BackgroundCall loop([&] { pause.pause(1, descriptor); });
    const bool rests = support::waitUntil([&] { return system_calls::restsBegun() > before; });
    wakeUp();
    return rests && loop.returns();
}

/// Whether the loop rests in its next pause, which lasts `longestRest` at most then.
bool rests(LoopPause& pause) {
    const int before = system_calls::restsBegun();
    pause.pause(1);
    return system_calls::restsBegun() > before;
}

void add(LoopPause& pause) {
    pause.itemAdded();
    pause.wake();
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

TEST(LoopPause, ALongOneIsOneSleepWhateverThereIsToDo) {
    LoopPause pause(kForTheTest);
    system_calls::RecordedSleeps sleeps;
    pause.pause(50);
    EXPECT_EQ(sleeps.take(), Lengths{50});
    add(pause);
    pause.announceChange();
    pause.pause(20'000);
    pause.pauseWithoutWork(5000);
    EXPECT_EQ(sleeps.take(), (Lengths{20'000, 5000}));
    pause.pause(-1);
    EXPECT_EQ(sleeps.take(), Lengths{4'294'967'295});
}

TEST(LoopPause, AShortOneIsNoSleepOfItsLength) {
    LoopPause pause(kForTheTest);
    system_calls::RecordedSleeps sleeps;
    add(pause);
    pause.pause(49);
    pause.pause(0);
    EXPECT_EQ(sleeps.take(), Lengths{});
}

TEST(LoopPause, AnItemEndsTheRest) {
    LoopPause pause(kTooLong);
    EXPECT_TRUE(endsTheRest(pause, [&] { add(pause); }));
}

TEST(LoopPause, ALoopWithItemsDoesNotRest) {
    LoopPause pause{std::chrono::nanoseconds(1)};
    pause.itemAdded();
    pause.itemAdded();
    EXPECT_FALSE(rests(pause));
    pause.itemTaken();
    EXPECT_FALSE(rests(pause));
    pause.itemTaken();
    EXPECT_TRUE(rests(pause));
}

TEST(LoopPause, ALoopThatHasTakenItsItemsIsWokenByTheNext) {
    LoopPause pause(kTooLong);
    pause.itemAdded();
    pause.pause(1);
    pause.itemTaken();
    EXPECT_TRUE(endsTheRest(pause, [&] { add(pause); }));
}

TEST(LoopPause, AChangeEndsTheRest) {
    LoopPause pause(kTooLong);
    EXPECT_TRUE(endsTheRest(pause, [&] { pause.announceChange(); }));
    EXPECT_TRUE(endsTheRest(pause, [&] { pause.announceChange(); })) << "and the next one";
}

TEST(LoopPause, AfterAChangeTheLoopRunsOneCycleBeforeItRests) {
    LoopPause pause{std::chrono::nanoseconds(1)};
    EXPECT_TRUE(rests(pause));
    pause.announceChange();
    pause.announceChange();
    EXPECT_FALSE(rests(pause));
    EXPECT_TRUE(rests(pause));
}

TEST(LoopPause, AChangeAlsoEndsTheRestOfALoopThatCannotTakeItsItems) {
    LoopPause pause{std::chrono::nanoseconds(1)};
    pause.itemAdded();
    const int before = system_calls::restsBegun();
    pause.announceChange();
    pause.pauseWithoutWork(1);
    EXPECT_EQ(system_calls::restsBegun(), before);
    pause.pauseWithoutWork(1);
    EXPECT_EQ(system_calls::restsBegun(), before + 1);
}

TEST(LoopPause, TheDescriptorsBytesEndTheRest) {
    std::array<int, 2> ends{};
    ASSERT_EQ(socketpair(AF_UNIX, SOCK_STREAM, 0, ends.data()), 0);
    const zolt_os::Descriptor loopEnd(ends[0]);
    const zolt_os::Descriptor farEnd(ends[1]);
    LoopPause pause(kTooLong);
    EXPECT_TRUE(endsTheRest(
        pause, [&] { EXPECT_EQ(send(farEnd.get(), "x", 1, 0), 1); }, loopEnd.get()));
}

TEST(LoopPause, TheRestLastsItsLongestTimeWhenNothingHappens) {
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
            while (sent == taken) {
                there.pause(1);
                std::this_thread::yield();
            }
            there.itemTaken();
            add(back);
            ++returned;
        }
    });
    for (int taken = 0; taken < kRounds; ++taken) {
        add(there);
        ++sent;
        while (returned == taken) {
            back.pause(1);
            std::this_thread::yield();
        }
        back.itemTaken();
    }
    other.join();
    EXPECT_EQ(returned, kRounds);
}

TEST(LoopPause, NoChangeIsMissedBetweenTwoLoops) {
    constexpr int kRounds = 2000;
    LoopPause there(kForTheTest);
    LoopPause back(kForTheTest);
    std::atomic<int> sent{0};
    std::atomic<int> returned{0};
    std::thread other([&] {
        for (int seen = 0; seen < kRounds; ++seen) {
            while (sent == seen) {
                there.pause(1);
                std::this_thread::yield();
            }
            ++returned;
            back.announceChange();
        }
    });
    for (int seen = 0; seen < kRounds; ++seen) {
        ++sent;
        there.announceChange();
        while (returned == seen) {
            back.pause(1);
            std::this_thread::yield();
        }
    }
    other.join();
    EXPECT_EQ(returned, kRounds);
}

TEST(LoopPause, ALoopThatNothingCouldWakeDoesNotRest) {
    rlimit old{};
    ASSERT_EQ(getrlimit(RLIMIT_NOFILE, &old), 0);
    const rlimit none{0, old.rlim_max};
    ASSERT_EQ(setrlimit(RLIMIT_NOFILE, &none), 0);
    LoopPause pause(kForTheTest);
    ASSERT_EQ(setrlimit(RLIMIT_NOFILE, &old), 0);
    EXPECT_FALSE(rests(pause));
}

}  // namespace
