#include <sys/resource.h>

#include <filesystem>
#include <stdexcept>
#include <string>

#include "tests/faults/fault_test.h"
#include "tests/support/files.h"
#include "tests/support/process/private_view.h"
#include "tests/support/sanitizer.h"
#include "tests/support/wait.h"

namespace {

/// Limits the descriptors of a process (0: this one and all that it starts) to numbers below
/// this one, until the object goes.
class NoDescriptorLeft {
  public:
    NoDescriptorLeft(pid_t process, rlim_t limit) : process_(process) {
        rlimit low{};
        if (::prlimit(process_, RLIMIT_NOFILE, nullptr, &usual_) != 0) fail();
        low = usual_;
        low.rlim_cur = limit;
        if (::prlimit(process_, RLIMIT_NOFILE, &low, nullptr) != 0) fail();
    }
    ~NoDescriptorLeft() { ::prlimit(process_, RLIMIT_NOFILE, &usual_, nullptr); }
    NoDescriptorLeft(const NoDescriptorLeft&) = delete;
    NoDescriptorLeft& operator=(const NoDescriptorLeft&) = delete;

  private:
    [[noreturn]] static void fail() { throw std::runtime_error("cannot limit open files"); }

    pid_t process_;
    rlimit usual_{};
};

class SystemDescriptors : public FaultTest {
  protected:
    std::size_t descriptors() const { return stateOf(daemon_.number()).descriptors.size(); }

    /// The number that the daemon's next descriptor would get.
    rlim_t nextNumber() const {
        const std::filesystem::path folder = "/proc/" + std::to_string(daemon_.number()) + "/fd";
        rlim_t number = 0;
        while (std::filesystem::is_symlink(folder / std::to_string(number))) ++number;
        return number;
    }
};

TEST_F(SystemDescriptors, NoneForAClient) {
    startServing();
    {
        // The system reserved the number for the first client of MON when the interface
        // began to wait. The second client gets no number.
        const NoDescriptorLeft limit(daemon_.number(), nextNumber());
        greeted(support::kMonPort).reset();
        auto monitor = support::TcpClient::connect(support::kMonPort);
        EXPECT_EQ(monitor.receiveUntil("anything"), "");
        EXPECT_TRUE(monitor.closedByPeer()) << "it cannot be served";
        EXPECT_NE(answered("DRVVER", "1.20"), "");
        sendOutput(0x12);
        EXPECT_TRUE(outputArrives(0x12));
    }
    greeted(support::kMonPort).reset();
    expectServesAsBefore();
}

TEST_F(SystemDescriptors, NoneForAnything) {
    startServing();
    const std::size_t all = descriptors();
    {
        // No number is left for the sockets and the port that have to be reopened.
        const NoDescriptorLeft limit(daemon_.number(), 3);
        io_.reset();
        console_.reset();
        bus_->control("fault silence for poll once");
        ASSERT_TRUE(faultsHaveStruck());
        // Two sockets of each interface with a client, and the port, are closed.
        EXPECT_TRUE(support::waitUntil([&] { return descriptors() == all - 5; }));
        EXPECT_FALSE(support::TcpClient::tryConnect(support::kIoPort).has_value());
    }
    expectServesAsBefore();
}

/// The daemon, started by a script of the same name that can limit its files.
class DescriptorsAtStart : public FaultTest {
  protected:
    DescriptorsAtStart() : FaultTest(script()) {}

    void startAfter(const std::string& command) {
        std::filesystem::create_directories(script().parent_path());
        support::writeFile(script(), "#!/bin/sh\n" + command + "\nexec " +
                                         support::DaemonProcess::defaultProgram() + "\n");
        std::filesystem::permissions(script(), std::filesystem::perms::owner_all);
        startDaemon();
    }

    void stop() {
        EXPECT_EQ(daemon_.stop(), "");
        io_.reset();
        console_.reset();
        std::filesystem::remove(settings_.logFile);
    }

    static std::filesystem::path script() { return support::workFolder() / "bin" / "zolt"; }
};

TEST_F(DescriptorsAtStart, AnInterfaceThatCannotListenIsDeadUntilTheNextStart) {
    if (support::kAddressSanitizer) {
        GTEST_SKIP() << "the checks of this build need descriptors of their own";
    }
    plugBus();
    startAfter("");
    expectFullRound();
    noteState();
    stop();

    // The descriptors are three standard streams, the wake-up of the master loop, and the
    // wake-ups and sockets of CAE and IO. The test passes on none that it has inherited.
    startAfter("exec 3<&- 4<&- 5<&- 6<&- 7<&- 8<&- 9<&-\nulimit -S -n 8");
    // The bus gets its thread after all interfaces have tried to open.
    ASSERT_TRUE(support::waitUntil(
        [this] { return stateOf(daemon_.number()).threads == before_.threads; }));
    const rlimit usual{64, 64};
    ASSERT_EQ(::prlimit(daemon_.number(), RLIMIT_NOFILE, &usual, nullptr), 0);
    // The shortage is over: the bus and the other two interfaces serve.
    expectFullRound();
    EXPECT_FALSE(support::TcpClient::tryConnect(support::kMonPort).has_value());
    EXPECT_EQ(timesLogged("[INF] MON interface listening on port 5003"), 0);
    stop();

    startAfter("");
    greeted(support::kMonPort).reset();
    expectServesAsBefore();
}

}  // namespace
