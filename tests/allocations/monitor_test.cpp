// These tests are not about allocations, but they use the same daemon without threads. They
// show when the master loop asks whether a monitor is connected.
#include "tests/allocations/allocation_test.h"
#include "tests/support/hand_run/hand_run_workers.h"

namespace {

class Monitor : public AllocationTest {
  protected:
    /// Runs a cycle of the master loop, in which the monitor's connection gets this state
    /// as soon as the loop has queued something for another thread.
    void cycleWithMonitorThen(ConnectionState state) {
        const support::AtNextWake change(
            [this, state] { daemon_.mon().descriptor.connectionState = state; });
        masterCycle();
    }

    std::string forTheMonitor() {
        const ByteList item = daemon_.mon().replyQueue.DeQueue();
        return {item.begin(), item.end()};
    }

    void queueLine() { receive(io_, daemon_.io(), "aEb1dFB\r\n"); }

    void queueReport() {
        daemon_.serial().globalPolling = true;
        daemon_.serial().OnTask();
        daemon_.bus.inputs[3] = {'\x40'};
        daemon_.serial().globalPolling = false;
        daemon_.serial().OnTask();
    }

    support::TcpClient io_ = daemon_.connect(daemon_.io());
};

TEST_F(Monitor, ThatComesWhileALineIsTranslatedSeesTheLine) {
    queueLine();
    cycleWithMonitorThen(ConnectionState::kConnected);
    EXPECT_EQ(forTheMonitor(), "aEb1dFB\r\n");
}

TEST_F(Monitor, ThatLeavesWhileALineIsTranslatedDoesNotSeeTheLine) {
    daemon_.mon().descriptor.connectionState = ConnectionState::kConnected;
    queueLine();
    cycleWithMonitorThen(ConnectionState::kClosed);
    EXPECT_EQ(forTheMonitor(), "");
}

TEST_F(Monitor, ThatComesWhileAReportGoesToIoSeesTheReport) {
    queueReport();
    cycleWithMonitorThen(ConnectionState::kConnected);
    EXPECT_EQ(forTheMonitor(), "a3b0d40\r\n");
}

TEST_F(Monitor, ThatLeavesWhileAReportGoesToIoDoesNotSeeTheReport) {
    daemon_.mon().descriptor.connectionState = ConnectionState::kConnected;
    queueReport();
    cycleWithMonitorThen(ConnectionState::kClosed);
    EXPECT_EQ(forTheMonitor(), "");
}

}  // namespace
