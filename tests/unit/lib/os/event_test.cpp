#include "lib/os/event.h"

#include <gtest/gtest.h>
#include <poll.h>

using namespace zolt_os;

namespace {

TEST(Event, StaysReadableOnceRaised) {
    Event event;
    pollfd entry{event.get(), POLLIN, 0};
    EXPECT_EQ(::poll(&entry, 1, 0), 0);
    event.raise();
    event.raise();
    EXPECT_EQ(::poll(&entry, 1, 0), 1);
    EXPECT_EQ(::poll(&entry, 1, 0), 1);
}

}  // namespace
