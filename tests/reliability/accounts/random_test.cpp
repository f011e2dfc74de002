#include "tests/reliability/accounts/random.h"

#include <gtest/gtest.h>

#include <set>

namespace reliability {
namespace {

TEST(Random, TheSameSeedAndPartGiveTheSameNumbers) {
    Random first(20, 3);
    Random second(20, 3);
    for (int i = 0; i < 100; ++i) EXPECT_EQ(first.number(), second.number());
}

TEST(Random, NeighbouringSeedsAndPartsShareNoNumbers) {
    constexpr std::uint64_t kSeeds = 20;
    constexpr std::uint64_t kParts = 20;
    std::set<std::uint64_t> firsts;
    for (std::uint64_t seed = 0; seed < kSeeds; ++seed) {
        for (std::uint64_t part = 0; part < kParts; ++part) {
            firsts.insert(Random(seed, part).number());
        }
    }
    EXPECT_EQ(firsts.size(), kSeeds * kParts);
}

TEST(Random, EveryBitOfASeedCounts) {
    EXPECT_NE(Random(std::uint64_t{1} << 40, 1).number(), Random(0, 1).number());
    EXPECT_NE(Random(1, std::uint64_t{1} << 40).number(), Random(1, 0).number());
}

}  // namespace
}  // namespace reliability
