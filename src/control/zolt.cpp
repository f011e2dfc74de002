#include "control/zolt.h"

#include "common/text.h"
#include "core/config_reader.h"

namespace {

constexpr const char* kConfigFile = "/etc/zolt/zoltconf.xml";

}  // namespace

ZOLT::ZOLT(LOGGER logger, int* signalFlag)
    : logger_(logger),
      ioRequests_(std::make_unique<ZLQUEUE>()),
      caeRequests_(std::make_unique<ZLQUEUE>()),
      monRequests_(std::make_unique<ZLQUEUE>()),
      busReports_(std::make_unique<ZLQUEUE>()),
      signalFlag_(signalFlag),
      workArea_(std::make_unique<std::array<char, 16>>()) {
    for (const auto* queue : {&ioRequests_, &caeRequests_, &busReports_}) {
        (*queue)->readBy(pause_);
    }
    for (PERIFCARD& card : cards_) {
        card.clearPerifCard();
    }
}

ZOLT::~ZOLT() {
    // The workers hold plain pointers to the queues.
    for (const auto& interface : {cae_.get(), io_.get(), mon_.get()}) {
        if (interface != nullptr) {
            interface->end();
        }
    }
    if (serial_ != nullptr) {
        serial_->Stop();
    }
    for (auto* queue : {&ioRequests_, &caeRequests_, &monRequests_, &busReports_}) {
        queue->reset();
    }
    for (auto* interface : {&cae_, &io_, &mon_}) {
        interface->reset();
    }
    serial_.reset();
}

CONFIG_DESCRIPTOR ZOLT::ReadConfig() {
    CONFIG_DESCRIPTOR config = readConfigFile(kConfigFile);
    if (config.errorText == kUnloadable) {
        reportUnloadable();
    }
    return config;
}

bool ZOLT::InitProgramData() {
    config_ = ReadConfig();
    logger_.level = config_.logLevel;
    logger_.fileName = config_.debugLogFile;
    logger_.info("zolt is started");
    if (config_.errorText != CONFIG_DESCRIPTOR::kNoError) {
        logger_.error(config_.errorText);
        logger_.info("zolt is stopped with error");
        return false;
    }
    logger_.info("Initparam Autodiscover: ", BTOA(config_.autoDiscover));
    logger_.info("Initparam Enablepoll: ", BTOA(config_.initialPollState));
    logger_.info("Initparam Speed (ThreadDelay): ", ITOA(config_.threadDelay));
    return true;
}

void ZOLT::InitInterfaces() {
    cae_ = startInterface(config_.cae, caeRequests_.get());
    io_ = startInterface(config_.io, ioRequests_.get());
    mon_ = startInterface(config_.mon, monRequests_.get());
    serial_ = std::make_unique<SERIAL_INTERFACE>("", logger_, cards_, busReports_.get(),
                                                 config_.initialPollState, config_.autoDiscover);
    serial_->threadDelay = config_.threadDelay;
    daemonConsole_.emplace(DaemonConsole::Parts{.cae = *cae_,
                                                .io = *io_,
                                                .mon = *mon_,
                                                .serial = *serial_,
                                                .cards = cards_,
                                                .busReports = *busReports_,
                                                .threadDelay = config_.threadDelay});
    console_.emplace(*daemonConsole_, config_.cae.inpSeparator, config_.cae.outSeparator);
}

std::unique_ptr<SOCKET_INTERFACE> ZOLT::startInterface(const INTERFACE_DESCRIPTOR& settings,
                                                       ZLQUEUE* requests) {
    auto interface =
        std::make_unique<SOCKET_INTERFACE>(settings, logger_, requests, FramingMode::kText);
    // An interface that cannot listen says so in the log; the others still serve.
    interface->Init();
    return interface;
}
