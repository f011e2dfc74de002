#include <poll.h>
#include <sys/select.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <optional>
#include <utility>

#include "common/pauses.h"
#include "common/text.h"
#include "ports/socket_interface.h"

namespace {

/// The pause in which the worker reaches its first cycle before the owner goes on: 5 ms.
constexpr unsigned kStartPause = 50000;

/// How often a parked interface checks whether it has been stopped: every 0.5 ms.
constexpr unsigned kParkPause = 5000;

/// The time for which a cycle waits for its client.
constexpr long kWaitMicroseconds = 1;

}  // namespace

SOCKET_INTERFACE::SOCKET_INTERFACE(INTERFACE_DESCRIPTOR settings, LOGGER logger, ZLQUEUE* requests,
                                   FramingMode mode)
    : descriptor(std::move(settings)), logger_(logger), requests_(requests), mode_(mode) {
    replyQueue.readBy(pause_);
    descriptor.connectionState.readBy(pause_);
    descriptor.threadDelay.readBy(pause_);
    SetThreadType(kIntervalDriven, 1);
    Sleep(kStartPause);
}

SOCKET_INTERFACE::~SOCKET_INTERFACE() {
    end();
}

void SOCKET_INTERFACE::end() {
    // This comes first, so that a worker that is just reopening does not go on to accept.
    requestStop();
    {
        MutexGuard guard(lock_);
        shutDownSockets();
    }
    Stop();
    closeSockets();
}

bool SOCKET_INTERFACE::OnTask() {
    if (connected()) {
        pause_.pause(descriptor.threadDelay, clientSocket());
    } else {
        pause_.pauseWithoutWork(descriptor.threadDelay);
    }
    if (descriptor.connectionState == ConnectionState::kListening) {
        acceptClient();
    }
    if (connected()) {
        serveClient(clientSocket());
    }
    if (descriptor.connectionState == ConnectionState::kClosed) {
        reopen();
    }
    // This comes last, so that a placeholder interface still runs its first cycle whole.
    if (descriptor.name == "DMI") {
        park();
    }
    return true;
}

bool SOCKET_INTERFACE::connected() const {
    return descriptor.connectionState == ConnectionState::kConnected;
}

int SOCKET_INTERFACE::clientSocket() {
    MutexGuard guard(lock_);
    return clientSocket_;
}

void SOCKET_INTERFACE::serveClient(int client) {
    bool lost = false;
    switch (readable(client)) {
        case Readable::kError:
            error("socket select error on ", " interface");
            // No client will ever leave after a failed accept, so it counts as lost, which
            // reopens the port.
            lost = client == -1;
            break;
        case Readable::kYes:
            lost = !readFrom(client);
            break;
        case Readable::kNo:
            break;
    }
    if (lost) {
        loseClient();
    }
    writeToClient(lost);
}

SOCKET_INTERFACE::Readable SOCKET_INTERFACE::readable(int client) {
    if (client < 0) {
        return Readable::kError;
    }
    if (client >= FD_SETSIZE) {
        // A set of select() cannot hold a number this high.
        pollfd item{client, POLLIN, 0};
        const timespec wait{0, kWaitMicroseconds * 1000};
        const int ready = ppoll(&item, 1, &wait, nullptr);
        return ready == -1 ? Readable::kError : ready == 0 ? Readable::kNo : Readable::kYes;
    }
    fd_set readSet;
    FD_ZERO(&readSet);
    FD_SET(client, &readSet);
    fd_set writeSet = readSet;
    fd_set exceptionSet = readSet;
    timeval wait{0, kWaitMicroseconds};
    if (select(client + 1, &readSet, &writeSet, &exceptionSet, &wait) == -1) {
        return Readable::kError;
    }
    return FD_ISSET(client, &readSet) ? Readable::kYes : Readable::kNo;
}

bool SOCKET_INTERFACE::readFrom(int client) {
    std::array<char, framing::kReadSize + 1> buffer{};
    if (read(client, buffer.data(), framing::kReadSize) > 0) {
        requests_->ToQueue(framing::received(mode_, buffer.data()));
        return true;
    }
    // A close by command looks the same from here, and has been logged.
    if (!connected()) {
        return true;
    }
    info("connection is closed by client on ", " interface");
    return false;
}

void SOCKET_INTERFACE::loseClient() {
    closeSockets();
    MutexGuard guard(lock_);
    descriptor.connectionState = ConnectionState::kClosed;
    reopenCounter_ = 0;
}

void SOCKET_INTERFACE::writeToClient(bool clientLost) {
    std::string bytes;
    int client = -1;
    {
        MutexGuard guard(lock_);
        // After a close by command in this cycle, what is queued is for the next client. A
        // client that left by itself takes one item with it.
        if (!clientLost && !connected()) {
            return;
        }
        const std::optional<ByteList> item = replyQueue.takeNext();
        if (!item) {
            return;
        }
        bytes = framing::toSend(mode_, *item);
        client = clientSocket_;
    }
    for (std::size_t sent = 0; sent < bytes.size();) {
        const ssize_t count = send(client, bytes.data() + sent, bytes.size() - sent, MSG_NOSIGNAL);
        if (count < 0) {
            error("socket write error on ", " interface");
            return;
        }
        sent += static_cast<std::size_t>(count);
    }
}

void SOCKET_INTERFACE::park() {
    info("On task ", " interface");
    while (running()) {
        Sleep(kParkPause);
    }
}

void SOCKET_INTERFACE::mf_SIGhandler(int signal) {
    logger_.info("signal ", ITOA(signal), " on ", descriptor.name, " interface");
}
