#include "lib/os/deadline.h"

#include <gtest/gtest.h>
#include <poll.h>

#include "lib/os/event.h"

using namespace zolt_os;

namespace {

constexpr Seconds kGenerous{60};

TEST(Deadline, PollIsGivenAtMostAMinuteAndAtLeastNothing) {
    EXPECT_EQ(pollMilliseconds(std::nullopt), -1);
    EXPECT_EQ(pollMilliseconds(Clock::now() - std::chrono::seconds(1)), 0);
    EXPECT_EQ(pollMilliseconds(Clock::time_point::max()), 60'000);
}

TEST(Deadline, WaitEndsWithTheDescriptor) {
    Event event;
    event.raise();
    EXPECT_TRUE(waitFor(event.get(), POLLIN, Deadline::in(kGenerous)));
}

TEST(Deadline, WaitEndsWithTheTime) {
    const Event event;
    EXPECT_FALSE(waitFor(event.get(), POLLIN, Deadline(Clock::now())));
    EXPECT_FALSE(waitFor(event.get(), POLLIN, Deadline::in(Seconds(0.01))));
}

TEST(Deadline, WaitEndsWithTheInterruptAlsoWhenTheDescriptorIsReady) {
    Event event;
    Event interrupt;
    interrupt.raise();
    EXPECT_FALSE(waitFor(event.get(), POLLIN, Deadline::in(kGenerous, interrupt.get())));
    event.raise();
    EXPECT_FALSE(waitFor(event.get(), POLLIN, Deadline::in(kGenerous, interrupt.get())));
}

TEST(Deadline, PauseIsCutByTheDeadlineAndByTheInterrupt) {
    EXPECT_TRUE(pauseFor(Seconds(0.001), Deadline::in(kGenerous)));
    EXPECT_FALSE(pauseFor(kGenerous, Deadline::in(Seconds(0.001))));
    Event interrupt;
    interrupt.raise();
    EXPECT_FALSE(pauseFor(kGenerous, Deadline::in(kGenerous + kGenerous, interrupt.get())));
}

}  // namespace
