#include "common/pauses.h"
#include "control/zolt.h"

void ZOLT::reply(const ByteList& item) {
    cae_->replyQueue.ToQueue(item);
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

void ZOLT::request(const ByteList& frame) {
    serial_->CommandQueue(wire::kSystemQueue).ToQueue(frame);
}

void ZOLT::report(const ByteList& line) {
    busReports_->ToQueue(line);
}

void ZOLT::pause(int seconds) {
    sleepsec(seconds);
}

void ZOLT::closeConnection() {
    cae_->CloseByCommand();
}
