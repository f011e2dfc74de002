#include "apps/zolt-sim/cards/request.h"

#include <gtest/gtest.h>

namespace zolt_sim {
namespace {

TEST(Request, HasTheKindOfItsFirstByte) {
    EXPECT_EQ(requestKind({0x20, 3, 2}), RequestKind::kPoll);
    EXPECT_EQ(requestKind({0x10}), RequestKind::kOutput);
    EXPECT_EQ(requestKind({0x30}), RequestKind::kDiscovery);
    EXPECT_EQ(requestKind({0x40, 0x6F, 0x9A}), RequestKind::kCheck);
    EXPECT_EQ(requestKind({0x50, 1}), RequestKind::kConfig);
    EXPECT_EQ(requestKind({0x60}), RequestKind::kUnknown);
    EXPECT_EQ(requestKind({}), RequestKind::kUnknown);
}

TEST(Request, KindsHaveNames) {
    for (const char* name : {"poll", "output", "discovery", "check", "config"}) {
        const auto kind = requestKindNamed(name);
        ASSERT_TRUE(kind) << name;
        EXPECT_EQ(requestKindName(*kind), name);
    }
    EXPECT_EQ(requestKindNamed("poll"), RequestKind::kPoll);
    EXPECT_FALSE(requestKindNamed("unknown"));
}

TEST(Request, NamesACardInItsSecondByte) {
    EXPECT_EQ(namedCard({0x20, 3, 2}), 3);
    EXPECT_EQ(namedCard({0x10, 16}), 16);
    EXPECT_EQ(namedCard({0x50, 0x0E, 1}), 0x0E);
    EXPECT_FALSE(namedCard({0x40, 0x6F, 0x9A}));
    EXPECT_FALSE(namedCard({0x30, 3}));
    EXPECT_FALSE(namedCard({0x20}));
    EXPECT_FALSE(namedCard({}));
}

}  // namespace
}  // namespace zolt_sim
