#include "lib/os/descriptor.h"

#include <fcntl.h>
#include <gtest/gtest.h>

#include <system_error>

using namespace zolt_os;

namespace {

bool isOpen(int number) {
    return ::fcntl(number, F_GETFD) >= 0;
}

Descriptor openNull() {
    return checked(::open("/dev/null", O_RDONLY | O_CLOEXEC), "open");
}

TEST(Descriptor, ClosesWhatItOwns) {
    int number = -1;
    {
        const Descriptor descriptor = openNull();
        number = descriptor.get();
        EXPECT_TRUE(isOpen(number));
    }
    EXPECT_FALSE(isOpen(number));
}

TEST(Descriptor, MovesWithoutClosing) {
    Descriptor first = openNull();
    const int number = first.get();
    const Descriptor second = std::move(first);
    EXPECT_EQ(second.get(), number);
    EXPECT_TRUE(isOpen(number));
}

TEST(Descriptor, ClosesWhatItOwnedWhenItIsAssigned) {
    Descriptor first = openNull();
    Descriptor second = openNull();
    const int replaced = first.get();
    const int kept = second.get();
    first = std::move(second);
    EXPECT_EQ(first.get(), kept);
    EXPECT_FALSE(isOpen(replaced));
    first.reset();
    EXPECT_FALSE(first.valid());
    EXPECT_FALSE(isOpen(kept));
}

TEST(Descriptor, CheckedReportsWhatFailed) {
    try {
        checked(::open("/nowhere/at/all", O_RDONLY | O_CLOEXEC), "the file");
        FAIL() << "accepted";
    } catch (const std::system_error& error) {
        EXPECT_STREQ(error.what(), "the file: No such file or directory");
    }
}

}  // namespace
