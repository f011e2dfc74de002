#include <fcntl.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <optional>
#include <string>

#include "lib/os/descriptor.h"
#include "tests/process/process_test.h"
#include "tests/support/tcp/tcp_client.h"

namespace {

using support::TcpClient;

constexpr const char* kConsoleBanner =
    "ZOLT CAE interface is ready\r\n(Type HELP for help)\r\n>\r\n\r";
constexpr const char* kIoBanner = "ZOLT IO interface is ready\r\n\r";

class Robustness : public ProcessTest {
  protected:
    // The daemon prints an incomplete command on standard output, and the console still has
    // to get its reply.
    void expectCutCommandReported() {
        auto console = TcpClient::connect(support::kCaePort);
        auto io = TcpClient::connect(support::kIoPort);
        ASSERT_EQ(console.receiveUntil("\n\r"), kConsoleBanner);
        ASSERT_EQ(io.receiveUntil("\n\r"), kIoBanner);
        for (int round = 0; round < 3; ++round) {
            io.send("a\r\n");
            EXPECT_EQ(console.receiveUntil(">\r\n\r"), "COE:Parser exception -> a\r\n\r>\r\n\r");
        }
        EXPECT_EQ(io.receive(), "");
        EXPECT_TRUE(daemon_.running());
    }
};

TEST_F(Robustness, ClosedStandardOutputDoesNotStopIt) {
    start(support::StandardStreams::kClosed);
    expectCutCommandReported();
}

TEST_F(Robustness, BrokenStandardOutputDoesNotStopIt) {
    std::array<int, 2> ends{};
    ASSERT_EQ(::pipe2(ends.data(), O_CLOEXEC), 0);
    const zolt_os::Descriptor writeEnd(ends[1]);
    ::close(ends[0]);
    start(writeEnd.get());
    expectCutCommandReported();
}

TEST_F(Robustness, BusyPortIsLoggedAndTheOtherInterfacesWork) {
    const zolt_os::Descriptor occupant(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0));
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(support::kCaePort);
    ASSERT_EQ(::bind(occupant.get(), reinterpret_cast<const sockaddr*>(&address), sizeof address),
              0);
    ASSERT_EQ(::listen(occupant.get(), 1), 0);
    start();
    EXPECT_TRUE(logHas("[ERR] couldn't bind socket forCAE interface"));
    EXPECT_TRUE(logHas("[INF] CAE interface listening on port 5001"));
    auto io = TcpClient::connect(support::kIoPort);
    EXPECT_EQ(io.receiveUntil("\n\r"), kIoBanner);
}

// The packet has several pieces. Each piece causes two replies on the console, and one reply
// is sent per cycle. Most replies therefore still wait when their client goes away.
class WaitingReplies : public Robustness {
  protected:
    void SetUp() override {
        Robustness::SetUp();
        settings_.percent = 1;
        for (char piece = 'A'; piece <= 'Z'; ++piece) {
            const std::string text = std::string(1, piece) + "\r\n";
            packet_ += text;
            replies_ += "COE:Illegal command -> " + text + "\r>\r\n\r";
        }
        start();
        console_ = TcpClient::connect(support::kCaePort);
        io_ = TcpClient::connect(support::kIoPort);
        ASSERT_EQ(console_->receiveUntil("\n\r"), kConsoleBanner);
        ASSERT_EQ(io_->receiveUntil("\n\r"), kIoBanner);
        io_->send(packet_);
        ASSERT_TRUE(replies_.starts_with(console_->receiveUntil("\n\r")));
    }

    // The next client gets the remaining replies, each of them whole, and then its banner.
    void expectRestForNextClient() {
        console_.reset();
        ASSERT_TRUE(logHas("[INF] connection is closed by client on CAE interface"));
        // A client that connects before the port is reopened is turned away.
        ASSERT_TRUE(logHas("[INF] CAE interface listening on port 5001", 2));
        auto next = TcpClient::connect(support::kCaePort);
        const std::string got = next.receiveUntil(kConsoleBanner);
        ASSERT_TRUE(got.ends_with(kConsoleBanner)) << got;
        const std::string rest = got.substr(0, got.size() - std::string(kConsoleBanner).size());
        EXPECT_TRUE(replies_.ends_with(rest)) << rest;
        EXPECT_TRUE(rest.starts_with("COE:") || rest.starts_with(">")) << rest;
        EXPECT_TRUE(daemon_.running());
    }

    std::string packet_;
    std::string replies_;
    std::optional<TcpClient> console_;
    std::optional<TcpClient> io_;
};

TEST_F(WaitingReplies, GoToTheNextClientWhenTheirsLeaves) {
    expectRestForNextClient();
}

TEST_F(WaitingReplies, GoToTheNextClientWhenTheirsResets) {
    console_->reset();
    expectRestForNextClient();
}

}  // namespace
