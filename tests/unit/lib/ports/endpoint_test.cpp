#include "lib/ports/endpoint.h"

#include <gtest/gtest.h>

using namespace zolt_ports;

TEST(Endpoint, IsLabelledByPortAndAddress) {
    EXPECT_EQ((Endpoint{Port::kCae, "127.0.0.1", 4001, {}}.label()), "console 127.0.0.1:4001");
    EXPECT_EQ((Endpoint{Port::kIo, "attic", 4002, {}}.label()), "IO attic:4002");
    EXPECT_EQ((Endpoint{Port::kMon, "::1", 4003, {}}.label()), "monitor [::1]:4003");
}
