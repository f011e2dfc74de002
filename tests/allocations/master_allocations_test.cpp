#include "tests/allocations/allocation_test.h"

namespace {

/// "aEb1dFB" and its line end, and the report "a3b0d40" with its.
constexpr std::size_t kLine = 9;
/// The bytes of "10 0E 02 FF FB", and the list of the line's commands.
constexpr std::size_t kTranslation = 6;

class MasterAllocations : public AllocationTest {
  protected:
    void queueReport() {
        daemon_.serial().globalPolling = true;
        daemon_.serial().OnTask();
        daemon_.bus.inputs[3] = {'\x40'};
        daemon_.serial().OnTask();
    }

    void queueLine() {
        if (!io_) io_ = daemon_.connect(daemon_.io());
        receive(*io_, daemon_.io(), "aEb1dFB\r\n");
    }

    std::optional<support::TcpClient> io_;
};

TEST_F(MasterAllocations, AReportWithoutAClientTakesNothing) {
    queueReport();
    EXPECT_EQ(masterCycle(), 0U);
}

TEST_F(MasterAllocations, AReportTakesItsLineEnd) {
    auto io = daemon_.connect(daemon_.io());
    queueReport();
    EXPECT_EQ(masterCycle(), 2U);
    daemon_.io().OnTask();
    EXPECT_EQ(io.receiveUntil("\r\n\r"), "a3b0d40\r\n\r");
}

TEST_F(MasterAllocations, AMonitorTakesACopyOfTheReport) {
    auto io = daemon_.connect(daemon_.io());
    auto mon = daemon_.connect(daemon_.mon());
    queueReport();
    EXPECT_EQ(masterCycle(), 2U + kLine);
    daemon_.mon().OnTask();
    EXPECT_EQ(mon.receiveUntil("\r\n\r"), "a3b0d40\r\n\r");
}

TEST_F(MasterAllocations, AnOutputCommandTakesItsFrame) {
    queueLine();
    EXPECT_EQ(masterCycle(), kTranslation);
    EXPECT_EQ(daemon_.serial().commandQueue(14).DeQueue(),
              (ByteList{wire::kOutput, 14, 2, '\xFF', '\xFB'}));
}

TEST_F(MasterAllocations, AMonitorTakesTheCommandItself) {
    auto mon = daemon_.connect(daemon_.mon());
    queueLine();
    EXPECT_EQ(masterCycle(), kTranslation);
    daemon_.mon().OnTask();
    EXPECT_EQ(mon.receiveUntil("\r\n\r"), "aEb1dFB\r\n\r");
}

}  // namespace
