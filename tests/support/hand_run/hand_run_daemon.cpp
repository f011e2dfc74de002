#include "tests/support/hand_run/hand_run_daemon.h"

#include <netinet/in.h>
#include <sys/select.h>
#include <sys/socket.h>

#include <csignal>
#include <cstdio>
#include <stdexcept>

#include "tests/support/hand_run/hand_run_workers.h"

extern "C" {
std::FILE* __real_popen(const char* command, const char* mode);
std::FILE* __wrap_popen(const char* command, const char* mode);

std::FILE* __wrap_popen(const char* /*command*/, const char* mode) {
    return __real_popen("echo ttyUSB0", mode);
}
}

namespace support {
namespace {

/// The port that a listening socket has, 0 for any other descriptor.
std::uint16_t listeningPort(int descriptor) {
    int listens = 0;
    socklen_t size = sizeof listens;
    sockaddr_in address{};
    socklen_t addressSize = sizeof address;
    if (::getsockopt(descriptor, SOL_SOCKET, SO_ACCEPTCONN, &listens, &size) != 0 || listens == 0 ||
        ::getsockname(descriptor, reinterpret_cast<sockaddr*>(&address), &addressSize) != 0) {
        return 0;
    }
    return ntohs(address.sin_port);
}

/// The ports that this process listens on, in the order of their opening: a new
/// descriptor has the lowest number that is free.
std::array<std::uint16_t, 3> listeningPorts() {
    std::array<std::uint16_t, 3> ports{};
    std::size_t found = 0;
    for (int descriptor = 0; descriptor < FD_SETSIZE && found < ports.size(); ++descriptor) {
        if (const std::uint16_t port = listeningPort(descriptor)) ports.at(found++) = port;
    }
    return ports;
}

}  // namespace

HandRunDaemon::HandRunDaemon(const std::array<char, wire::kAddresses>& kinds)
    : zolt_(LOGGER(), &signalFlag_) {
    bus.kinds = kinds;
    plugIn(bus);
    zolt_.InitInterfaces();
    ports_ = listeningPorts();
    cae_ = static_cast<SOCKET_INTERFACE*>(workers().at(0));
    io_ = static_cast<SOCKET_INTERFACE*>(workers().at(1));
    mon_ = static_cast<SOCKET_INTERFACE*>(workers().at(2));
    serial_ = static_cast<SERIAL_INTERFACE*>(workers().at(3));
    serial_->commandQueue(wire::kSystemQueue).ToQueue({wire::kDiscovery});
    serial_->OnTask();
    if (bus.requests() != 2) throw std::runtime_error("the link does not find its bus");
}

void HandRunDaemon::runMaster(const std::function<bool()>& betweenCycles) {
    signalFlag_ = ZOLT::kNoSignal;
    const DuringPauses pauses([&] {
        if (!betweenCycles()) signalFlag_ = SIGTERM;
    });
    zolt_.MasterThread();
}

Allocations HandRunDaemon::masterCycle() {
    Allocations before;
    Allocations after;
    int pauses = 0;
    runMaster([&] {
        (pauses++ == 0 ? before : after) = allocations();
        return pauses < 2;
    });
    return {after.count - before.count, after.bytes - before.bytes};
}

TcpClient HandRunDaemon::connect(SOCKET_INTERFACE& interface) const {
    const std::array<const SOCKET_INTERFACE*, 3> interfaces{cae_, io_, mon_};
    for (std::size_t i = 0; i < interfaces.size(); ++i) {
        if (interfaces.at(i) == &interface) {
            TcpClient client = TcpClient::connect(ports_.at(i));
            interface.OnTask();
            return client;
        }
    }
    throw std::invalid_argument("not an interface of this daemon");
}

}  // namespace support
