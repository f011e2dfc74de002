#include <utility>

#include "common/pauses.h"
#include "control/zolt.h"

void ZOLT::reply(ByteList item) {
    cae_->replyQueue.ToQueue(std::move(item));
}

PERIFCARD& ZOLT::card(std::size_t address) {
    return cards_[address];
}

bool ZOLT::polling() const {
    return serial_->globalPolling;
}

void ZOLT::setPolling(bool on) {
    serial_->globalPolling = on;
}

void ZOLT::setThreadDelay(std::int32_t microseconds) {
    config_.threadDelay = microseconds;
    serial_->threadDelay = microseconds;
    for (SOCKET_INTERFACE* interface : {cae_.get(), io_.get(), mon_.get()}) {
        interface->descriptor.threadDelay = microseconds;
    }
}

void ZOLT::request(ByteList frame) {
    serial_->CommandQueue(wire::kSystemQueue).ToQueue(std::move(frame));
}

void ZOLT::report(ByteList line) {
    busReports_->ToQueue(std::move(line));
}

void ZOLT::pause(int seconds) {
    sleepsec(seconds);
}

void ZOLT::closeConnection() {
    cae_->CloseByCommand();
}
