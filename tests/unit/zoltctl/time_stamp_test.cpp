#include "apps/zoltctl/output/time_stamp.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>
#include <string>

using namespace zoltctl;

namespace {

/// Local time of this program for one test.
class Zone {
  public:
    explicit Zone(const char* zone) {
        ::setenv("TZ", zone, 1);
        ::tzset();
    }
    ~Zone() {
        ::unsetenv("TZ");
        ::tzset();
    }
    Zone(const Zone&) = delete;
    Zone& operator=(const Zone&) = delete;
};

/// 2026-11-21 13:03:07.123 UTC
const WallTime kTime{std::chrono::milliseconds{1795266187123}};

}  // namespace

TEST(TimeStamp, IsLocalTimeWithMilliseconds) {
    const Zone zone("CET-1");
    EXPECT_EQ(timeText(kTime), "2026-11-21 14:03:07.123");
    EXPECT_EQ(timeIso(kTime), "2026-11-21T14:03:07.123+01:00");
}

TEST(TimeStamp, OffsetsMayBeNegativeAndUneven) {
    const Zone zone("NST3:30");
    EXPECT_EQ(timeIso(kTime), "2026-11-21T09:33:07.123-03:30");
}

TEST(TimeStamp, MillisecondsHaveThreeDigits) {
    const Zone zone("UTC0");
    EXPECT_EQ(timeText(kTime - std::chrono::milliseconds{116}), "2026-11-21 13:03:07.007");
    EXPECT_EQ(timeIso(kTime - std::chrono::milliseconds{123}), "2026-11-21T13:03:07.000+00:00");
}
