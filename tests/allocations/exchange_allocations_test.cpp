#include "tests/allocations/allocation_test.h"

namespace {

/// The three bytes of a poll and the four of its answer.
constexpr std::size_t kPoll = 7;
/// The bytes of a report such as "a3b0d40", and one allocation for the list of reports.
constexpr std::size_t kReport = 8;

class ExchangeAllocations : public AllocationTest {
  protected:
    /// Runs cycles until no queue takes a block in the next one. The polls of that cycle are
    /// queued then.
    void startPolling() {
        daemon_.serial().globalPolling = true;
        for (std::size_t i = 0; i < kItemsOfABlock; ++i) daemon_.serial().OnTask();
    }

    std::size_t cycles(std::size_t count) {
        std::size_t taken = 0;
        for (std::size_t i = 0; i < count; ++i) taken += cycle(daemon_.serial());
        return taken;
    }
};

TEST_F(ExchangeAllocations, APollTakesItsBytesAndThoseOfItsAnswer) {
    startPolling();
    const std::size_t before = daemon_.bus.polls();
    EXPECT_EQ(cycles(kItemsOfABlock), kInputs * (kItemsOfABlock * kPoll + 1))
        << "one block per queue and 21 polls";
    EXPECT_EQ(daemon_.bus.polls() - before, kInputs * kItemsOfABlock);
}

TEST_F(ExchangeAllocations, ARequestTakesTheBytesOfItsAnswer) {
    daemon_.serial().commandQueue(14).ToQueue({wire::kOutput, 14, 2, 1, 2});
    EXPECT_EQ(cycle(daemon_.serial()), 1U) << "the acknowledgement";
    EXPECT_EQ(daemon_.bus.requests(), 3U);
}

TEST_F(ExchangeAllocations, AChangeTakesItsReportBesides) {
    daemon_.serial().globalPolling = true;
    daemon_.serial().OnTask();
    daemon_.bus.inputs[3] = {'\x40'};
    EXPECT_EQ(cycle(daemon_.serial()), kInputs * kPoll + kReport);
}

}  // namespace
