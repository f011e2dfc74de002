#include <signal.h>

#include "tests/process/process_test.h"
#include "tests/support/files.h"
#include "tests/support/tcp/tcp_client.h"

namespace {

class Stop : public ProcessTest {
  protected:
    void expectProperEnd(int number) {
        EXPECT_EQ(daemon_.waitForEnd(), "status 0");
        const std::string signal = "[INF] signal " + std::to_string(number) + " on ";
        const auto lines = logLines();
        ASSERT_GE(lines.size(), 5U);
        EXPECT_EQ(std::vector<std::string>(lines.end() - 5, lines.end()),
                  (std::vector<std::string>{signal + "CAE interface", signal + "IO interface",
                                            signal + "MON interface", signal + "serial interface",
                                            "[INF] zolt is stopped by SIGTERM or SIGINT"}));
        EXPECT_EQ(support::readFile(support::kPidFile), std::to_string(daemon_.number()));
    }
};

TEST_F(Stop, TerminationSignalEndsTheDaemonWithStatus0) {
    startAndAwaitCalm();
    daemon_.signal(SIGTERM);
    expectProperEnd(SIGTERM);
}

TEST_F(Stop, InterruptSignalEndsTheDaemonWithStatus0) {
    startAndAwaitCalm();
    daemon_.signal(SIGINT);
    expectProperEnd(SIGINT);
}

TEST_F(Stop, HangUpSignalKillsTheDaemon) {
    startAndAwaitCalm();
    daemon_.signal(SIGHUP);
    EXPECT_EQ(daemon_.waitForEnd(), "signal 1");
    for (const auto& line : logLines()) EXPECT_EQ(line.find("signal"), std::string::npos) << line;
}

TEST_F(Stop, SignalEndsAPauseOfMoreThanAnHour) {
    // Above 100 percent the pause is computed as a negative number of microseconds, which
    // counts as about 71 minutes.
    settings_.percent = 200;
    start();
    ASSERT_TRUE(logHas("[INF] MON interface listening on port 5003"));
    // A signal shortly before the pause does not end it, the next one does.
    EXPECT_TRUE(support::waitUntil([this] {
        daemon_.signal(SIGTERM);
        return !daemon_.running();
    }));
    EXPECT_EQ(daemon_.waitForEnd(), "status 0");
    EXPECT_EQ(logLines().back(), "[INF] zolt is stopped by SIGTERM or SIGINT");
}

TEST_F(Stop, SignalDuringTheFarewellOfAClientIsNotLost) {
    start();
    auto client = support::TcpClient::connect(support::kIoPort);
    ASSERT_EQ(client.receiveUntil("\n\r"), "ZOLT IO interface is ready\r\n\r");
    client.send("EXIT\r\n");
    ASSERT_EQ(client.receiveUntil("\n\r"), "ZOLT: Bye Bye...\r\n\r");
    daemon_.signal(SIGTERM);
    EXPECT_EQ(daemon_.waitForEnd(), "status 0");
    EXPECT_EQ(logLines().back(), "[INF] zolt is stopped by SIGTERM or SIGINT");
}

}  // namespace
