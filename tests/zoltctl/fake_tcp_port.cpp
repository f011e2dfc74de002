#include "tests/zoltctl/fake_tcp_port.h"

#include <gtest/gtest.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <system_error>

#include "tests/support/wait.h"

namespace ctl_test {
namespace {

zolt_os::Descriptor listenOnLoopback(std::uint16_t port) {
    zolt_os::Descriptor socket(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0));
    const int yes = 1;
    ::setsockopt(socket.get(), SOL_SOCKET, SO_REUSEADDR, &yes, sizeof yes);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    address.sin_port = htons(port);
    const auto* generic = reinterpret_cast<const sockaddr*>(&address);
    if (::bind(socket.get(), generic, sizeof address) != 0 || ::listen(socket.get(), 1) != 0) {
        throw std::system_error(errno, std::generic_category(), "port " + std::to_string(port));
    }
    return socket;
}

}  // namespace

std::string item(const std::string& text, const std::string& lineEnd) {
    return text + lineEnd + "\r";
}

std::string reply(const std::vector<std::string>& lines, const std::string& lineEnd) {
    std::string bytes;
    for (const auto& line : lines) bytes += item(line, lineEnd);
    return bytes + item(">", lineEnd);
}

std::string unknownCommand(const std::string& lineEnd) {
    return item("CIE: UNKNOWN COMMAND " + lineEnd + ">", lineEnd);
}

void FakeConnection::send(std::string_view bytes) const {
    while (!bytes.empty()) {
        const auto count = ::send(socket_, bytes.data(), bytes.size(), MSG_NOSIGNAL);
        if (count <= 0) return;
        bytes.remove_prefix(static_cast<std::size_t>(count));
    }
}

void FakeConnection::sendSingly(std::string_view bytes) const {
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        send(bytes.substr(i, 1));
    }
}

void FakeConnection::expect(const std::string& line) {
    EXPECT_EQ(receive(), line);
}

std::string FakeConnection::receive() {
    pollfd readable{socket_, POLLIN, 0};
    const auto patience = std::chrono::milliseconds(support::kPatience).count();
    if (::poll(&readable, 1, static_cast<int>(patience)) != 1) {
        ADD_FAILURE() << "the client neither sends nor leaves";
        return {};
    }
    std::array<char, 4096> buffer{};
    const auto count = ::recv(socket_, buffer.data(), buffer.size(), 0);
    return count <= 0 ? std::string() : std::string(buffer.data(), static_cast<std::size_t>(count));
}

std::string FakeConnection::receiveRest() {
    std::string bytes;
    for (std::string packet = receive(); !packet.empty(); packet = receive()) {
        bytes += packet;
    }
    return bytes;
}

void FakeConnection::keepSilent() {
    receiveRest();
}

void FakeConnection::awaitUnread() const {
    pollfd readable{socket_, POLLIN, 0};
    ::poll(&readable, 1, static_cast<int>(std::chrono::milliseconds(support::kPatience).count()));
}

void FakeConnection::hold() const {
    // The wait ends when both directions are shut.
    pollfd ended{socket_, 0, 0};
    ::poll(&ended, 1, static_cast<int>(std::chrono::milliseconds(support::kPatience).count()));
}

void FakeConnection::flood(std::string_view bytes) const {
    constexpr std::size_t kLimit = std::size_t{1} << 30U;
    const auto deadline = support::Clock::now() + support::kPatience;
    std::size_t sent = 0;
    while (sent < kLimit && support::Clock::now() < deadline) {
        pollfd writable{socket_, POLLOUT, 0};
        ::poll(&writable, 1, 100);
        const auto count = ::send(socket_, bytes.data(), bytes.size(), MSG_NOSIGNAL | MSG_DONTWAIT);
        if (count > 0) sent += static_cast<std::size_t>(count);
        if (count < 0 && errno != EAGAIN) return;
    }
    ADD_FAILURE() << "the client does not leave; it has got " << sent << " bytes";
}

FakeTcpPort::FakeTcpPort(std::uint16_t port, std::vector<Script> scripts)
    : listening_(listenOnLoopback(port)),
      thread_([this, kept = std::move(scripts)] { serve(kept); }) {}

FakeTcpPort::~FakeTcpPort() {
    {
        const std::lock_guard guard(lock_);
        ending_ = true;
        ::shutdown(listening_.get(), SHUT_RDWR);
        if (served_ != -1) ::shutdown(served_, SHUT_RDWR);
    }
    thread_.join();
}

void FakeTcpPort::serve(const std::vector<Script>& scripts) {
    for (const auto& script : scripts) {
        const zolt_os::Descriptor client(
            ::accept4(listening_.get(), nullptr, nullptr, SOCK_CLOEXEC));
        if (!client.valid()) return;
        const int yes = 1;
        ::setsockopt(client.get(), IPPROTO_TCP, TCP_NODELAY, &yes, sizeof yes);
        {
            const std::lock_guard guard(lock_);
            if (ending_) return;
            served_ = client.get();
        }
        FakeConnection connection(client.get());
        script(connection);
        const std::lock_guard guard(lock_);
        served_ = -1;
    }
}

FakeTcpPort::Script console(Replies answers) {
    return [kept = std::move(answers)](FakeConnection& client) {
        client.send(kConsoleBanner);
        for (auto line = client.receive(); !line.empty(); line = client.receive()) {
            const auto found = kept.find(line);
            client.send(found == kept.end() ? unknownCommand() : found->second);
        }
    };
}

FakeTcpPort::Script ioPort(const std::string& expected) {
    return [expected](FakeConnection& client) {
        client.send(kIoBanner);
        EXPECT_EQ(client.receiveRest(), expected);
    };
}

}  // namespace ctl_test
