#include "tests/reliability/accounts/non_blocking_client.h"

#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>

#include <array>
#include <cerrno>
#include <system_error>
#include <utility>

#include "tests/support/tcp/tcp_table.h"
#include "tests/support/text/text_escape.h"

namespace reliability {
namespace {

constexpr std::string_view kGreeting = " interface is ready\r\n";
constexpr int kSmallWindow = 2048;

}  // namespace

void NonBlockingClient::noteDown(const std::string& what) const {
    if (observer_) observer_(what);
}

void NonBlockingClient::connect(bool smallWindow) {
    drop();
    noteDown(smallWindow ? "connects with a small window" : "connects");
    smallWindow_ = smallWindow;
    wanted_ = true;
    begin();
}

void NonBlockingClient::begin() {
    socket_.reset(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
    if (!socket_.valid()) throw std::system_error(errno, std::generic_category(), "socket");
    const int yes = 1;
    ::setsockopt(socket_.get(), IPPROTO_TCP, TCP_NODELAY, &yes, sizeof yes);
    if (smallWindow_) {
        ::setsockopt(socket_.get(), SOL_SOCKET, SO_RCVBUF, &kSmallWindow, sizeof kSmallWindow);
    }
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    address.sin_port = htons(port_);
    const auto* generic = reinterpret_cast<const sockaddr*>(&address);
    if (::connect(socket_.get(), generic, sizeof address) != 0 && errno != EINPROGRESS) {
        socket_.reset();
    }
    connecting_ = socket_.valid();
}

void NonBlockingClient::finishConnect() {
    pollfd event{socket_.get(), POLLOUT, 0};
    if (::poll(&event, 1, 0) == 0) return;
    int error = 0;
    socklen_t size = sizeof error;
    ::getsockopt(socket_.get(), SOL_SOCKET, SO_ERROR, &error, &size);
    connecting_ = false;
    if (error != 0) socket_.reset();
}

void NonBlockingClient::tick() {
    if (!wanted_) return;
    if (!socket_.valid()) {
        begin();
    } else if (connecting_) {
        finishConnect();
    } else if (!stalled_) {
        read();
    }
}

void NonBlockingClient::read() {
    std::array<char, 65536> buffer{};
    for (;;) {
        const auto count = ::recv(socket_.get(), buffer.data(), buffer.size(), 0);
        if (count < 0 && (errno == EAGAIN || errno == EINTR)) break;
        if (count <= 0) {
            noteDown("finds its connection ended");
            drop();
            return;
        }
        received_.append(buffer.data(), static_cast<std::size_t>(count));
    }
    if (!served_) lookForGreeting();
}

void NonBlockingClient::lookForGreeting() {
    if (received_.find(kGreeting) == std::string::npos) return;
    served_ = true;
    ++timesServed_;
    noteDown("is greeted");
}

bool NonBlockingClient::send(std::string_view bytes) {
    if (!connected()) return false;
    const auto sent = ::send(socket_.get(), bytes.data(), bytes.size(), MSG_NOSIGNAL);
    const bool all = sent == static_cast<ssize_t>(bytes.size());
    noteDown((all ? "sends \"" : "cannot send all of \"") + support::escapeBytes(bytes) + "\"");
    return all;
}

void NonBlockingClient::stall(bool stalled) {
    if (stalled_ != stalled) noteDown(stalled ? "stalls" : "reads on");
    stalled_ = stalled;
}

void NonBlockingClient::close() {
    if (wanted_) noteDown("leaves");
    drop();
}

void NonBlockingClient::drop() {
    socket_.reset();
    wanted_ = connecting_ = served_ = stalled_ = false;
    received_.clear();
}

void NonBlockingClient::reset() {
    if (wanted_) noteDown("resets its connection");
    if (socket_.valid()) {
        const linger atOnce{1, 0};
        ::setsockopt(socket_.get(), SOL_SOCKET, SO_LINGER, &atOnce, sizeof atOnce);
    }
    drop();
}

bool NonBlockingClient::hasBeenRead() const {
    return connected() && support::peerHasReadAll(socket_.get());
}

std::string NonBlockingClient::take() {
    return std::exchange(received_, {});
}

}  // namespace reliability
