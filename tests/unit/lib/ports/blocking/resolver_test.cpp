#include "lib/ports/blocking/resolver.h"

#include <gtest/gtest.h>

using namespace zolt_ports;
using zolt_os::Deadline;
using zolt_os::Seconds;

namespace {

bool isLoopback(const char* host) {
    const std::vector<Address> addresses = resolve(host, 4001, Deadline::in(Seconds(20)));
    return addresses.size() == 1 && addresses[0].isLoopback();
}

TEST(Resolver, DistinguishesAddressesOfThisMachineFromOthers) {
    EXPECT_TRUE(isLoopback("127.0.0.1"));
    EXPECT_TRUE(isLoopback("127.255.0.3"));
    EXPECT_TRUE(isLoopback("::1"));
    EXPECT_FALSE(isLoopback("128.0.0.1"));
    EXPECT_FALSE(isLoopback("::2"));
}

}  // namespace
