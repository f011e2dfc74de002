#include "apps/zolt-check/checks/port_setting.h"

#include <gtest/gtest.h>

namespace {

using namespace zolt_check;

TEST(PortSetting, BindsItsLow16Bits) {
    EXPECT_EQ(boundPort(4001), 4001);
    EXPECT_EQ(boundPort(65536), 0);
    EXPECT_EQ(boundPort(69537), 4001);
    EXPECT_EQ(boundPort(-1), 65535);
}

TEST(PortSetting, OfAPlainNumberIsNoSurprise) {
    EXPECT_EQ(portSurprise("1025", 1025), "");
    EXPECT_EQ(portSurprise("65535", 65535), "");
    EXPECT_EQ(portSurprise(" 4001", 4001), "");
}

TEST(PortSetting, WithTextAfterTheNumber) {
    EXPECT_EQ(portSurprise("4001x", 4001),
              "Port \"4001x\" counts as 4001: the text after the number is ignored");
}

TEST(PortSetting, Above65535) {
    EXPECT_EQ(portSurprise("70000", 70000),
              "Port 70000 is above 65535: zolt uses its low 16 bits, port 4464");
    EXPECT_EQ(portSurprise("65616", 65616),
              "Port 65616 is above 65535: zolt uses its low 16 bits, port 80, which needs "
              "privileges");
    EXPECT_EQ(portSurprise("65536", 65536),
              "Port 65536 is above 65535: zolt uses its low 16 bits, which are 0: the system picks "
              "a port each time the interface is opened");
}

}  // namespace
