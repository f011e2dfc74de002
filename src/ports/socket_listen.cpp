#include <arpa/inet.h>
#include <netinet/tcp.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>

#include "common/pauses.h"
#include "common/text.h"
#include "ports/socket_interface.h"

namespace {

/// The number of clients that may wait while one is served.
constexpr int kBacklog = 1;

struct SocketOption {
    int level;
    int name;
    int value;
};

/// A client whose machine has vanished frees the interface within two minutes,
/// and each reply goes out at once. The user timeout also ends a client that
/// takes nothing for that long while replies wait for it. TCP_USER_TIMEOUT overrides
/// TCP_KEEPCNT, so it equals 60 + 3 x 15 s.
constexpr std::array kClientOptions{
    SocketOption{SOL_SOCKET, SO_KEEPALIVE, 1},
    SocketOption{IPPROTO_TCP, TCP_KEEPIDLE, 60},   // seconds
    SocketOption{IPPROTO_TCP, TCP_KEEPINTVL, 15},  // seconds
    SocketOption{IPPROTO_TCP, TCP_KEEPCNT, 3},
    SocketOption{IPPROTO_TCP, TCP_USER_TIMEOUT, 105'000},  // milliseconds
    SocketOption{IPPROTO_TCP, TCP_NODELAY, 1},
};

struct Banner {
    const char* name;
    const char* text;
};

constexpr std::array kBanners{
    Banner{"CAE", "ZOLT CAE interface is ready\r\n(Type HELP for help)\r\n>\r\n"},
    Banner{"IO", "ZOLT IO interface is ready\r\n"},
    Banner{"MON", "ZOLT MON interface is ready\r\n"},
};

bool setOption(int socket, const SocketOption& option) {
    return setsockopt(socket, option.level, option.name, &option.value, sizeof option.value) == 0;
}

}  // namespace

bool SOCKET_INTERFACE::Init() {
    const int listening = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (listening == -1) {
        error("couldn't open socket for", " interface");
        return false;
    }
    if (!setOption(listening, {SOL_SOCKET, SO_REUSEADDR, 1})) {
        error("couldn't set socket options for", " interface");
    }
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_ANY);
    address.sin_port = htons(static_cast<std::uint16_t>(descriptor.port));
    if (bind(listening, reinterpret_cast<const sockaddr*>(&address), sizeof address) == -1) {
        // The daemon goes on: an unbound socket listens on a port of the system's choice.
        error("couldn't bind socket for", " interface");
    }
    if (listen(listening, kBacklog) == -1) {
        close(listening);
        error("", " interface listening error on port ", ITOA(descriptor.port));
        return false;
    }
    {
        MutexGuard guard(lock_);
        listeningSocket_ = listening;
        descriptor.connectionState = ConnectionState::kListening;
    }
    info("", " interface listening on port ", ITOA(descriptor.port));
    return true;
}

void SOCKET_INTERFACE::acceptClient() {
    info("", " interface is waiting for incoming connection");
    int listening = -1;
    {
        MutexGuard guard(lock_);
        // A command may have closed the interface meanwhile.
        if (!descriptor.connectionState.replace(ConnectionState::kListening,
                                                ConnectionState::kAccepting)) {
            return;
        }
        listening = listeningSocket_;
    }
    sleepsec(3);
    sockaddr_in peer{};
    socklen_t peerSize = sizeof peer;
    const int client =
        accept4(listening, reinterpret_cast<sockaddr*>(&peer), &peerSize, SOCK_CLOEXEC);
    if (client == -1) {
        error("socket accept error on ", " interface");
    } else {
        for (const SocketOption& option : kClientOptions) {
            setOption(client, option);
        }
    }
    // The rest is one locked region: a command that closes the interface comes before all of
    // it or after all of it.
    MutexGuard guard(lock_);
    clientSocket_ = client;
    if (descriptor.connectionState != ConnectionState::kAccepting) {
        return;  // the command that closed the interface also ended the wait
    }
    // The port as it is in the address, not in host order: operators know the log's
    // numbers that way.
    info("client is connected on ", " interface from ", inet_ntoa(peer.sin_addr), ":",
         ITOA(peer.sin_port));
    queueBanner();
    descriptor.connectionState = ConnectionState::kConnected;
}

void SOCKET_INTERFACE::queueBanner() {
    for (const Banner& banner : kBanners) {
        if (descriptor.name == banner.name) {
            replyQueue.ToQueue(Convert_CharBuff2QList(banner.text));
        }
    }
}

void SOCKET_INTERFACE::CloseByCommand() {
    MutexGuard guard(lock_);
    descriptor.connectionState = ConnectionState::kClosed;
    info("connection is closed by command on ", " interface");
    shutDownSockets();
    reopenCounter_ = 0;
}

void SOCKET_INTERFACE::shutDownSockets() const {
    for (const int socket : {clientSocket_, listeningSocket_}) {
        if (socket != -1) {
            shutdown(socket, SHUT_RDWR);
        }
    }
}

void SOCKET_INTERFACE::closeSockets() {
    MutexGuard guard(lock_);
    for (int* socket : {&clientSocket_, &listeningSocket_}) {
        if (*socket != -1) {
            close(*socket);
            *socket = -1;
        }
    }
}

void SOCKET_INTERFACE::reopen() {
    closeSockets();
    ++reopenCounter_;
    sleepsec(2);
    if (reopenCounter_ > 1) {
        Init();
    }
}
