#include "apps/zoltctl/port_failure.h"

#include <gtest/gtest.h>

using namespace zoltctl;
using zolt_ports::PortError;
using zolt_ports::Reason;

namespace {

std::string shown(Reason reason) {
    const Failure failure = failureOf(PortError(reason, "text"));
    return std::to_string(static_cast<int>(failure.status())) + " " + failure.what();
}

}  // namespace

TEST(PortFailure, EveryReasonHasAnExitStatusAndItsHint) {
    EXPECT_EQ(shown(Reason::kBadLine), "2 text");
    EXPECT_EQ(shown(Reason::kNoPort), "8 text: the configuration gives none; give it as an option");
    EXPECT_EQ(shown(Reason::kUnreachable), "3 text");
    EXPECT_EQ(shown(Reason::kHeld), "4 text");
    EXPECT_EQ(shown(Reason::kCut), "5 text");
    EXPECT_EQ(shown(Reason::kTimeout), "6 text (--timeout)");
    EXPECT_EQ(shown(Reason::kNotZolt), "7 text");
    EXPECT_EQ(shown(Reason::kRefused), "1 text");
    EXPECT_EQ(shown(Reason::kNotKnown), "1 text, or its InpSeparator is not what --line-end says");
    EXPECT_EQ(shown(Reason::kNoLineEnd), "1 text; name its InpSeparator with --line-end");
    EXPECT_EQ(shown(Reason::kInterrupted), "130 text");
}
