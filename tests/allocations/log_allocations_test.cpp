#include "tests/allocations/allocation_test.h"

namespace {

class LogAllocations : public AllocationTest {};

TEST_F(LogAllocations, AMessageTakesItsTextTwice) {
    EXPECT_EQ(support::allocationsOf([&] { daemon_.io().mf_SIGhandler(2); }).count, 2U);
    EXPECT_EQ(support::allocationsOf([&] { daemon_.serial().mf_SIGhandler(2); }).count, 2U);
}

}  // namespace
