#include <algorithm>
#include <atomic>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <initializer_list>
#include <optional>
#include <string>
#include <utility>

#include "common/pauses.h"
#include "control/io_forms.h"
#include "control/zolt.h"

namespace {

/// The time between two tries to start a worker for which there was no thread.
constexpr std::chrono::seconds kWorkerStartPause{1};

bool isConnected(const SOCKET_INTERFACE& interface) {
    return interface.descriptor.connectionState == ConnectionState::kConnected;
}

bool isText(const ByteList& list, const std::string& text) {
    return std::equal(list.begin(), list.end(), text.begin(), text.end());
}

}  // namespace

void ZOLT::MasterThread() {
    while (true) {
        pause_.pause(config_.threadDelay);
        if (stopRequested()) {
            return;
        }
        startMissingWorkers();
        forwardBusReport();
        handleIoLine();
        handleCaeLine();
    }
}

bool ZOLT::stopRequested() {
    // Each call reads the flag: a second signal may come while the first is handled.
    const auto flag = [this] { return std::atomic_ref<int>(*signalFlag_).load(); };
    if (flag() == kNoSignal) {
        return false;
    }
    for (SOCKET_INTERFACE* interface : {cae_.get(), io_.get(), mon_.get()}) {
        interface->mf_SIGhandler(flag());
    }
    serial_->mf_SIGhandler(flag());
    if (const int signal = flag(); signal != SIGTERM && signal != SIGINT) {
        return false;
    }
    logger_.info("zolt is stopped by SIGTERM or SIGINT");
    return true;
}

void ZOLT::startMissingWorkers() {
    if (workersRunning_) {
        return;
    }
    const auto now = std::chrono::steady_clock::now();
    if (now < nextWorkerStart_) {
        return;
    }
    nextWorkerStart_ = now + kWorkerStartPause;
    workersRunning_ = true;
    for (CThread* worker :
         std::initializer_list<CThread*>{cae_.get(), io_.get(), mon_.get(), serial_.get()}) {
        workersRunning_ = worker->Start() && workersRunning_;
    }
}

void ZOLT::forwardBusReport() {
    std::optional<ByteList> report = busReports_->takeNext();
    // A monitor watches the IO traffic: without an IO client there is none.
    if (!report || !isConnected(*io_)) {
        return;
    }
    report->insert(report->end(), config_.io.outSeparator.begin(), config_.io.outSeparator.end());
    // A text this short takes nothing from the heap, where a list takes each byte.
    const std::string text(report->begin(), report->end());
    io_->replyQueue.ToQueue(std::move(*report));
    if (isConnected(*mon_)) {
        mon_->replyQueue.ToQueue({text.begin(), text.end()});
    }
}

void ZOLT::handleIoLine() {
    std::optional<ByteList> line = ioRequests_->takeNext();
    if (!line) {
        return;
    }
    if (isText(*line, "EXIT" + config_.io.inpSeparator)) {
        io_->replyQueue.ToQueue(Convert_String2QList("ZOLT: Bye Bye..." + config_.io.outSeparator));
        // The whole loop waits here, so that the farewell reaches the client.
        sleepsec(1);
        io_->CloseByCommand();
        return;
    }
    ParseOutCommand(*line);
    if (isConnected(*mon_)) {
        mon_->replyQueue.ToQueue(std::move(*line));
    }
}

bool ZOLT::ParseOutCommand(const ByteList& list) {
    for (const std::string& command :
         splitCommands(Convert_QList2String(list), config_.io.inpSeparator)) {
        try {
            if (std::optional<OutputFrame> frame = translateOutput(command, cards_)) {
                serial_->commandQueue(frame->address).ToQueue(std::move(frame->bytes));
            } else {
                reportIllegalCommand("COE:Illegal command -> " + command);
            }
        } catch (const CommandTooShort&) {
            std::printf("Caught an exception -- value is: %d\nka>%s<\n", CommandTooShort::kNumber,
                        command.c_str());
            std::fflush(stdout);
            reportIllegalCommand("COE:Parser exception -> " + command);
        }
    }
    return true;
}

void ZOLT::reportIllegalCommand(const std::string& text) {
    const std::string& separator = config_.cae.outSeparator;
    cae_->replyQueue.ToQueue(Convert_String2QList(text + separator));
    // The text arrives in the middle of the operator's line, so a fresh prompt follows.
    cae_->replyQueue.ToQueue(Convert_String2QList(">" + separator));
}

void ZOLT::handleCaeLine() {
    if (const std::optional<ByteList> line = caeRequests_->takeNext()) {
        console_->interpret(Convert_QList2String(*line));
    }
}
