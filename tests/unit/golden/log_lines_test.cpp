#include "tests/golden/log_lines.h"

#include <gtest/gtest.h>

namespace golden {
namespace {

TEST(LogLines, TimeStampAndPeerPortAreMasked) {
    EXPECT_EQ(logItem("2024-02-29 23:59:58 [INF] zolt is started").text, "[INF] zolt is started");
    EXPECT_EQ(
        logItem("2024-02-29 23:59:58 [INF] client is connected on IO interface from 127.0.0.1:12")
            .text,
        "[INF] client is connected on IO interface from 127.0.0.1:PORT");
}

TEST(LogLines, LineWithoutProperTimeStampStaysWhole) {
    EXPECT_EQ(logItem("24-2-29 23:59:58 [INF] a").text, "24-2-29 23:59:58 [INF] a");
    EXPECT_EQ(logItem("[INF] a").text, "[INF] a");
}

TEST(LogLines, SourceFollowsFromTheText) {
    EXPECT_EQ(logSource("[INF] zolt is started"), "main");
    EXPECT_EQ(logSource("[INF] CAE interface listening on port 5001"), "main");
    EXPECT_EQ(logSource("[ERR] couldn't bind socket forIO interface"), "main");
    EXPECT_EQ(logSource("[INF] signal 15 on MON interface"), "main");
    EXPECT_EQ(logSource("[INF] signal 15 on serial interface"), "main");
    EXPECT_EQ(logSource("[INF] CAE interface is waiting for incoming connection"), "cae");
    EXPECT_EQ(logSource("[INF] connection is closed by client on IO interface"), "io");
    EXPECT_EQ(logSource("[ERR] socket write error on MON interface"), "mon");
    EXPECT_EQ(logSource("[ERR] unable to  write to /dev/ttyUSB0"), "serial");
    EXPECT_EQ(logSource("[INF] comm timeout /dev/ttyUSB0"), "serial");
}

TEST(LogLines, OnlySerialLinesAndSelectErrorsAreShutdownNoise) {
    const auto isNoise = [](const char* text) {
        return isShutdownNoise({"log", ItemKind::kLine, text});
    };
    EXPECT_TRUE(isNoise("[INF] comm timeout /dev/ttyUSB0"));
    EXPECT_TRUE(isNoise("[ERR] socket select error on IO interface"));
    EXPECT_FALSE(isNoise("[INF] signal 15 on serial interface"));
    EXPECT_FALSE(isNoise("[INF] zolt is stopped by SIGTERM or SIGINT"));
    EXPECT_FALSE(isShutdownNoise({"io", ItemKind::kBytes, "a"}));
    EXPECT_TRUE(isShutdownNoise({"bus", ItemKind::kLine, "host> 03 | 40 6F 9A"}));
}

}  // namespace
}  // namespace golden
