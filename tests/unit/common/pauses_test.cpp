#include "common/pauses.h"

#include <gtest/gtest.h>
#include <sys/time.h>

#include <atomic>
#include <cerrno>
#include <chrono>
#include <csignal>

namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::microseconds;
using std::chrono::seconds;

std::atomic<int> signalsSeen{0};

/// Interrupts this thread's pauses again and again while it lives.
class RepeatedSignals {
  public:
    RepeatedSignals() {
        signalsSeen = 0;
        struct sigaction action {};
        action.sa_handler = [](int) { ++signalsSeen; };
        sigaction(SIGALRM, &action, &oldAction_);
        setTimer(20'000);
    }
    ~RepeatedSignals() {
        setTimer(0);
        sigaction(SIGALRM, &oldAction_, nullptr);
    }
    RepeatedSignals(const RepeatedSignals&) = delete;
    RepeatedSignals& operator=(const RepeatedSignals&) = delete;

  private:
    static void setTimer(suseconds_t period) {
        const itimerval timer{{0, period}, {0, period}};
        setitimer(ITIMER_REAL, &timer, nullptr);
    }

    struct sigaction oldAction_ {};
};

// On a busy machine a pause may be longer than asked for, but never shorter: the tests look
// at lower bounds and at the system's answer to the request.

int errorOfSleep(unsigned steps) {
    errno = 0;
    Sleep(steps);
    return errno;
}

TEST(Pauses, SleepCountsInStepsOfAHundredNanoseconds) {
    const auto begin = Clock::now();
    Sleep(10'000);
    EXPECT_GE(Clock::now() - begin, microseconds(1000));
    EXPECT_EQ(errorOfSleep(50'000), 0);
}

TEST(Pauses, ASleepOfOneSecondOrMoreIsRefusedAndReturnsAtOnce) {
    EXPECT_EQ(errorOfSleep(10'000'000), EINVAL);
    EXPECT_EQ(errorOfSleep(20'000'000), EINVAL);
    // The largest product that fits 32 bits.
    EXPECT_EQ(errorOfSleep(42'949'672), EINVAL);
}

TEST(Pauses, TheProductOfSleepWrapsAt32Bits) {
    // 4 nanoseconds are left of these.
    EXPECT_EQ(errorOfSleep(42'949'673), 0);
}

TEST(Pauses, ASleepJustBelowOneSecondIsValidAndEndsWithASignal) {
    RepeatedSignals signals;
    EXPECT_EQ(errorOfSleep(9'999'999), EINTR);
}

TEST(Pauses, SleepsecLastsItsWholeTimeThroughSignals) {
    RepeatedSignals signals;
    const auto begin = Clock::now();
    sleepsec(1);
    EXPECT_GE(Clock::now() - begin, seconds(1));
    EXPECT_GT(signalsSeen, 1);
}

TEST(Pauses, ASpinLastsItsTime) {
    const auto begin = Clock::now();
    spinFor(100'000);
    EXPECT_GE(Clock::now() - begin, microseconds(100));
    spinFor(0);
    spinFor(-1);
}

// The test only has to come to its end: seconds that were taken as unsigned would last for
// many years.
TEST(Pauses, SleepsecOfZeroOrLessReturnsAtOnce) {
    sleepsec(0);
    sleepsec(-1);
}

}  // namespace
