#include <sys/resource.h>

#include <filesystem>
#include <stdexcept>
#include <string>

#include "tests/faults/fault_test.h"

namespace {

/// The daemon may open no further file, until the object goes.
class NoDescriptorLeft {
  public:
    NoDescriptorLeft(pid_t daemon, rlim_t limit) : daemon_(daemon) {
        rlimit low{};
        if (::prlimit(daemon_, RLIMIT_NOFILE, nullptr, &usual_) != 0) fail();
        low = usual_;
        low.rlim_cur = limit;
        if (::prlimit(daemon_, RLIMIT_NOFILE, &low, nullptr) != 0) fail();
    }
    ~NoDescriptorLeft() { ::prlimit(daemon_, RLIMIT_NOFILE, &usual_, nullptr); }
    NoDescriptorLeft(const NoDescriptorLeft&) = delete;
    NoDescriptorLeft& operator=(const NoDescriptorLeft&) = delete;

  private:
    [[noreturn]] static void fail() { throw std::runtime_error("cannot limit the daemon's files"); }

    pid_t daemon_;
    rlimit usual_{};
};

class SystemDescriptors : public FaultTest {
  protected:
    std::size_t descriptors() const { return stateOf(daemon_.number()).descriptors.size(); }

    /// The number that the daemon's next file would get.
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
        // The system has set the number for the first client of MON aside when
        // its interface began to wait; the second finds none.
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
        // Neither for the sockets and the port that are to be opened again.
        const NoDescriptorLeft limit(daemon_.number(), 3);
        io_.reset();
        console_.reset();
        bus_->control("fault silence for poll once");
        ASSERT_TRUE(faultsHaveStruck());
        // Two sockets of each client's interface and the port are gone.
        EXPECT_TRUE(support::waitUntil([&] { return descriptors() == all - 5; }));
        EXPECT_FALSE(support::TcpClient::tryConnect(support::kIoPort).has_value());
    }
    expectServesAsBefore();
}

}  // namespace
