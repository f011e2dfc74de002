#include "tests/support/tcp/tcp_client.h"

#include <linux/filter.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <stdexcept>
#include <system_error>

#include "tests/support/tcp/tcp_table.h"

namespace support {
namespace {

[[noreturn]] void fail(const std::string& what) {
    throw std::system_error(errno, std::generic_category(), what);
}

bool endsWith(const std::string& text, const std::string& end) {
    return text.size() >= end.size() &&
           text.compare(text.size() - end.size(), end.size(), end) == 0;
}

}  // namespace

std::optional<TcpClient> TcpClient::tryConnect(std::uint16_t port) {
    zolt_os::Descriptor socket(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0));
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    address.sin_port = htons(port);
    const auto* generic = reinterpret_cast<const sockaddr*>(&address);
    if (::connect(socket.get(), generic, sizeof address) != 0) {
        if (errno == ECONNREFUSED || errno == ECONNRESET) return std::nullopt;
        fail("connect to port " + std::to_string(port));
    }
    // Every send() makes a packet at once.
    const int yes = 1;
    ::setsockopt(socket.get(), IPPROTO_TCP, TCP_NODELAY, &yes, sizeof yes);
    return TcpClient(std::move(socket));
}

TcpClient TcpClient::connect(std::uint16_t port, std::chrono::milliseconds patience) {
    std::optional<TcpClient> client;
    if (!waitUntil([&] { return (client = tryConnect(port)).has_value(); }, patience)) {
        throw std::runtime_error("port " + std::to_string(port) + " stays refused");
    }
    return std::move(*client);
}

void TcpClient::send(std::string_view bytes) {
    const auto sent = ::send(socket_.get(), bytes.data(), bytes.size(), MSG_NOSIGNAL);
    if (sent != static_cast<ssize_t>(bytes.size())) fail("send");
}

std::string TcpClient::receive(std::size_t most) {
    std::string bytes;
    std::array<char, 4096> buffer{};
    while (!closedByPeer_ && bytes.size() < most) {
        const auto wanted = std::min(buffer.size(), most - bytes.size());
        const auto count = ::recv(socket_.get(), buffer.data(), wanted, MSG_DONTWAIT);
        if (count < 0 && (errno == EAGAIN || errno == EINTR)) break;
        if (count <= 0) {
            closedByPeer_ = true;
        } else {
            bytes.append(buffer.data(), static_cast<std::string::size_type>(count));
        }
    }
    return bytes;
}

bool TcpClient::waitReadable(std::chrono::milliseconds patience) const {
    pollfd event{socket_.get(), POLLIN, 0};
    return ::poll(&event, 1, static_cast<int>(patience.count())) > 0;
}

std::string TcpClient::receiveUntil(std::string_view end, std::chrono::milliseconds patience) {
    const std::string wanted(end);
    std::string bytes;
    waitUntil(
        [&] {
            bytes += receive();
            return endsWith(bytes, wanted) || closedByPeer_;
        },
        patience);
    return bytes;
}

bool TcpClient::peerHasReadAll() const {
    return support::peerHasReadAll(socket_.get());
}

void TcpClient::reset() {
    const linger atOnce{1, 0};
    ::setsockopt(socket_.get(), SOL_SOCKET, SO_LINGER, &atOnce, sizeof atOnce);
    socket_.reset();
}

void TcpClient::vanish() const {
    // This filter keeps 0 bytes of every packet: the system drops the packet without an answer.
    sock_filter dropAll{BPF_RET | BPF_K, 0, 0, 0};
    const sock_fprog program{1, &dropAll};
    if (::setsockopt(socket_.get(), SOL_SOCKET, SO_ATTACH_FILTER, &program, sizeof program) != 0) {
        fail("drop what comes");
    }
}

}  // namespace support
