#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>

#include <array>
#include <chrono>
#include <map>
#include <thread>

#include "lib/os/descriptor.h"
#include "tests/faults/fault_test.h"

namespace {

using support::TcpClient;

constexpr std::array kPorts{support::kCaePort, support::kIoPort, support::kMonPort};

enum class Attempt { kConnected, kRefused, kUnanswered };

/// Tries once to connect, without waiting, and resets the connection at once. A port whose
/// backlog is full does not answer.
Attempt connectAndReset(std::uint16_t port) {
    const zolt_os::Descriptor socket(
        ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
    const linger atOnce{1, 0};
    ::setsockopt(socket.get(), SOL_SOCKET, SO_LINGER, &atOnce, sizeof atOnce);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    address.sin_port = htons(port);
    if (::connect(socket.get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0) {
        return Attempt::kConnected;
    }
    pollfd entry{socket.get(), POLLOUT, 0};
    if (::poll(&entry, 1, 0) != 1) return Attempt::kUnanswered;
    int error = 0;
    socklen_t size = sizeof error;
    ::getsockopt(socket.get(), SOL_SOCKET, SO_ERROR, &error, &size);
    return error == 0 ? Attempt::kConnected : Attempt::kRefused;
}

class ClientResets : public FaultTest {
  protected:
    /// Closes all clients, so that all ports are free.
    void leave() {
        console_.reset();
        io_.reset();
    }
};

TEST_F(ClientResets, TwoThousandAttemptsOnEachPort) {
    startServing();
    leave();
    // The pace spreads the attempts over several rounds of closing, reopening and accepting.
    // With faster attempts the daemon would accept no connection.
    constexpr std::chrono::milliseconds kPace{10};
    std::map<std::uint16_t, std::map<Attempt, int>> outcomes;
    for (int attempt = 0; attempt < 2000; ++attempt) {
        for (const auto port : kPorts) ++outcomes[port][connectAndReset(port)];
        std::this_thread::sleep_for(kPace);
    }
    for (auto& [port, counts] : outcomes) {
        const std::string at = "_at_" + std::to_string(port);
        EXPECT_GT(counts[Attempt::kConnected], 0) << port;
        RecordProperty("connected" + at, counts[Attempt::kConnected]);
        RecordProperty("refused" + at, counts[Attempt::kRefused]);
        RecordProperty("unanswered" + at, counts[Attempt::kUnanswered]);
    }
    expectServesAsBefore();
}

TEST_F(ClientResets, WhileRepliesAreOnTheirWay) {
    startServing();
    auto monitor = greeted(support::kMonPort);
    console().send("HELP\r\n");
    for (unsigned i = 0; i < 20; ++i) io().send("Z\r\na3b0d" + hexByte(i) + "\r\n");
    ASSERT_FALSE(console().receiveUntil("\r").empty());
    ASSERT_FALSE(monitor.receiveUntil("\r").empty());
    monitor.reset();
    console().reset();
    io().reset();
    leave();
    expectServesAsBefore();
}

}  // namespace
