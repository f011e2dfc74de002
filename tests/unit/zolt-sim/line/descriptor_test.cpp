#include "apps/zolt-sim/line/descriptor.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>

#include <system_error>

namespace sim {
namespace {

bool isOpen(int number) {
    return ::fcntl(number, F_GETFD) >= 0;
}

TEST(Descriptor, ClosesWhatItHolds) {
    int number = -1;
    {
        const Descriptor descriptor = checked(::open("/dev/null", O_RDONLY | O_CLOEXEC), "open");
        number = descriptor.get();
        EXPECT_TRUE(isOpen(number));
    }
    EXPECT_FALSE(isOpen(number));
}

TEST(Descriptor, MovesWithoutClosing) {
    Descriptor first = checked(::open("/dev/null", O_RDONLY | O_CLOEXEC), "open");
    const int number = first.get();
    const Descriptor second = std::move(first);
    EXPECT_EQ(second.get(), number);
    EXPECT_TRUE(isOpen(number));
}

TEST(Descriptor, CheckedTellsWhatFailed) {
    try {
        checked(::open("/nowhere/at/all", O_RDONLY | O_CLOEXEC), "the file");
        FAIL() << "accepted";
    } catch (const std::system_error& error) {
        EXPECT_STREQ(error.what(), "the file: No such file or directory");
    }
}

TEST(StopEvent, StaysReadableOnceWoken) {
    StopEvent event;
    pollfd entry{event.get(), POLLIN, 0};
    EXPECT_EQ(::poll(&entry, 1, 0), 0);
    event.wake();
    event.wake();
    EXPECT_EQ(::poll(&entry, 1, 0), 1);
    EXPECT_EQ(::poll(&entry, 1, 0), 1);
}

}  // namespace
}  // namespace sim
