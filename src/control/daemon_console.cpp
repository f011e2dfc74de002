#include "control/daemon_console.h"

#include <utility>

#include "bus/wire.h"
#include "common/pauses.h"

void DaemonConsole::reply(ByteList item) {
    parts_.cae.replyQueue.ToQueue(std::move(item));
}

PERIFCARD& DaemonConsole::card(std::size_t address) {
    return parts_.cards[address];
}

bool DaemonConsole::polling() const {
    return parts_.serial.globalPolling;
}

void DaemonConsole::setPolling(bool on) {
    parts_.serial.globalPolling = on;
}

void DaemonConsole::setThreadDelay(std::int32_t microseconds) {
    parts_.threadDelay = microseconds;
    parts_.serial.threadDelay = microseconds;
    for (SOCKET_INTERFACE* interface : {&parts_.cae, &parts_.io, &parts_.mon}) {
        interface->descriptor.threadDelay = microseconds;
    }
}

void DaemonConsole::request(ByteList frame) {
    parts_.serial.commandQueue(wire::kSystemQueue).ToQueue(std::move(frame));
}

void DaemonConsole::report(ByteList line) {
    parts_.busReports.ToQueue(std::move(line));
}

void DaemonConsole::pause(int seconds) {
    sleepsec(seconds);
}

void DaemonConsole::closeConnection() {
    parts_.cae.CloseByCommand();
}
