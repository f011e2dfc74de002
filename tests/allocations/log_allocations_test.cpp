#include "tests/allocations/allocation_test.h"

namespace {

class LogAllocations : public AllocationTest {};

TEST_F(LogAllocations, AMessageTakesNothingWithoutAFile) {
    EXPECT_EQ(support::allocationsOf([&] { daemon_.io().mf_SIGhandler(2); }).count, 0U);
    EXPECT_EQ(support::allocationsOf([&] { daemon_.serial().mf_SIGhandler(2); }).count, 0U);
}

}  // namespace
