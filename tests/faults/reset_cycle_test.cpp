#include <gtest/gtest.h>
#include <unistd.h>

#include <memory>
#include <optional>
#include <string>

#include "ports/socket_interface.h"
#include "tests/faults/daemon_state.h"
#include "tests/support/doubles/recorded_pauses.h"
#include "tests/support/process/private_view.h"
#include "tests/support/tcp/tcp_client.h"
#include "tests/support/temporary_log.h"
#include "tests/support/wait.h"

namespace {

using support::TcpClient;
using support::waitUntil;

constexpr std::uint16_t kPort = 5001;
constexpr int kResets = 2000;

/// One interface of the daemon without the rest. Its pauses of whole seconds take no time:
/// every client is accepted, and the interface reopens after every close.
class ResetCycle : public testing::TestWithParam<const char*> {
  protected:
    void SetUp() override {
        support::enterTestBed();
        INTERFACE_DESCRIPTOR settings;
        settings.name = GetParam();
        settings.port = kPort;
        settings.threadDelay = 100;
        LOGGER logger;
        logger.fileName = log_.path();
        interface_ =
            std::make_unique<SOCKET_INTERFACE>(settings, logger, &requests_, FramingMode::kText);
        ASSERT_TRUE(interface_->Init());
    }

    /// A client that is served. Clients that connect too early are turned away first.
    TcpClient served() {
        std::optional<TcpClient> client;
        waitUntil([&] {
            client = TcpClient::connect(kPort);
            std::string got;
            waitUntil([&] {
                got += client->receive();
                return got.find(" is ready\r\n") != std::string::npos || client->closedByPeer();
            });
            return !client->closedByPeer();
        });
        return std::move(*client);
    }

    /// Serves a client and returns the state of this process meanwhile.
    DaemonState expectServes() {
        TcpClient client = served();
        client.send("a line");
        EXPECT_TRUE(waitUntil([this] { return !requests_.IsEmpty(); }));
        while (!requests_.IsEmpty()) requests_.DeQueue();
        interface_->replyQueue.ToQueue({'e', 'n', 'd'});
        const std::string got = client.receiveUntil("end\r");
        EXPECT_TRUE(got.ends_with("end\r")) << got;
        return stateOf(::getpid());
    }

    support::RecordedPauses pauses_;
    support::TemporaryLog log_;
    ZLQUEUE requests_;
    std::unique_ptr<SOCKET_INTERFACE> interface_;
};

TEST_P(ResetCycle, TwoThousandClientsThatConnectAndReset) {
    const DaemonState before = expectServes();
    for (int cycle = 0; cycle < kResets; ++cycle) {
        TcpClient client = served();
        // The client leaves with nothing, with a line and with a reply under way.
        if (cycle % 3 == 1) client.send("a line");
        if (cycle % 3 == 2) interface_->replyQueue.ToQueue({'r', 'e', 'p', 'l', 'y'});
        client.reset();
        while (!requests_.IsEmpty()) requests_.DeQueue();
    }
    const DaemonState after = expectServes();
    EXPECT_EQ(after.descriptors, before.descriptors);
    EXPECT_EQ(after.threads, before.threads);
    constexpr long kMemoryMargin = 1L << 20;
    if (memoryIsMeaningful()) {
        EXPECT_LE(after.memory, before.memory + kMemoryMargin);
    }
}

INSTANTIATE_TEST_SUITE_P(On, ResetCycle, testing::Values("CAE", "IO", "MON"),
                         [](const auto& parameter) { return std::string(parameter.param); });

}  // namespace
