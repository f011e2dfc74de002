#include "tests/reliability/soak/soak_stage.h"

#include <thread>

#include "tests/reliability/accounts/traffic.h"
#include "tests/support/process/private_view.h"

namespace reliability {
namespace {

// The daemon keeps what is typed on MON forever, in a list node of 32 bytes per byte.
constexpr std::size_t kMonitorBudget = 16 * 1024;
constexpr std::size_t kBytesPerByte = 32;
constexpr std::chrono::seconds kReadPatience{5};
constexpr std::chrono::seconds kDawdlersPause{1};

support::DaemonSettings soakSettings() {
    support::enterTestBed();
    support::DaemonSettings settings;
    settings.logFile = LogDisk::logFile();
    settings.polling = true;
    settings.discover = true;
    return settings;
}

}  // namespace

SoakStage::SoakStage() : WatchedDaemon(soakSettings(), kTrafficBus) {
    const auto noteAs = [this](const std::string& who) {
        return [this, who](const std::string& what) { diary_.note("  " + who + " " + what); };
    };
    cae().setObserver(noteAs("console"));
    io().setObserver(noteAs("IO"));
    mon().setObserver(noteAs("MON"));
    bus().setObserver(noteAs("bus:"));
}

void SoakStage::tick() {
    WatchedDaemon::tick();
    for (NonBlockingClient& client : others_) client.tick();
    strangers_.tick();
    sendSlowly();
    // The limit has held up a return that is under way.
    if (descriptors_.tick()) bus().dropMeasurement();
    if (accounting_) takeFrames();
}

void SoakStage::takeFrames() {
    for (const auto& frame : bus().takeOutputs()) {
        // "10 0E ...": the second byte names the card.
        ledgers_[static_cast<unsigned>(std::stoul(frame.substr(3, 2), nullptr, 16))].see(frame);
    }
}

void SoakStage::sendOutputs(std::size_t count) {
    if (!cardsKnown_ || !io().served() || io().stalled() || !io().hasBeenRead()) return;
    std::string packet;
    for (std::size_t i = 0; i < count; ++i) {
        const OutputCommand command = commands_.nextWithoutState();
        packet += command.line + "\r\n";
        ledgers_[command.card].send(command.frame);
    }
    bool read = io().send(packet);
    const auto deadline = support::Clock::now() + kReadPatience;
    while (read && !io().hasBeenRead() && support::Clock::now() < deadline) {
        tick();
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    // hasBeenRead() is also true for a connection that has ended.
    tick();
    read = read && io().connected() && io().hasBeenRead();
    if (!read) excused_ += count;
}

std::size_t SoakStage::outputsUnderWay() const {
    std::size_t count = 0;
    for (const auto& [card, ledger] : ledgers_) count += ledger.underWay();
    return count;
}

Tally SoakStage::outputs() const {
    Tally tally;
    for (const auto& [card, ledger] : ledgers_) tally += ledger.tally();
    return tally;
}

std::size_t SoakStage::explainedLosses() {
    return bus().counts().perhapsUnseen - unseenBefore_ + excused_;
}

void SoakStage::beginAccount() {
    ledgers_.clear();
    excused_ = 0;
    unseenBefore_ = bus().counts().perhapsUnseen;
}

void SoakStage::type(NonBlockingClient& client, const std::string& text) {
    if (&client != &mon()) {
        client.send(text);
    } else if (typedOnMonitor_ + text.size() <= kMonitorBudget && client.send(text)) {
        typedOnMonitor_ += text.size();
    }
}

void SoakStage::dawdle(NonBlockingClient& client, const std::string& text) {
    if (dawdler_.rest.empty()) dawdler_ = {&client, text, support::Clock::now()};
}

void SoakStage::sendSlowly() {
    if (dawdler_.rest.empty() || support::Clock::now() < dawdler_.due) return;
    type(*dawdler_.client, dawdler_.rest.substr(0, 1));
    dawdler_.rest.erase(0, 1);
    dawdler_.due += kDawdlersPause;
}

std::size_t SoakStage::monitorKib() const {
    return typedOnMonitor_ * kBytesPerByte / 1024;
}

void SoakStage::addClient(std::uint16_t port) {
    diary_.note("  to port " + std::to_string(port));
    others_.emplace_back(port).connect();
}

std::size_t SoakStage::connections() {
    return cae().timesServed() + io().timesServed() + mon().timesServed();
}

void SoakStage::plugIn(const std::string& link) {
    if (bus().plugged()) return;
    if (!link.empty()) link_ = link;
    bus().control("faults clear");
    bus().plug(link_, strangers_.count() > 0);
}

void SoakStage::spoil(const std::string& fault) {
    bus().dropMeasurement();
    bus().control("fault " + fault);
}

void SoakStage::limitDescriptors(std::size_t limit, std::chrono::milliseconds duration) {
    diary_.note("  to " + std::to_string(limit) + " for " + std::to_string(duration.count()) +
                " ms");
    bus().dropMeasurement();
    descriptors_.set(daemon().number(), limit, duration);
}

void SoakStage::restart() {
    descriptors_.lift();
    dawdler_ = {};
    stop();
    takeFrames();
    excused_ += outputsUnderWay();
    cardsKnown_ = false;
    typedOnMonitor_ = 0;
    bus().dropMeasurement();
    start();
}

void SoakStage::endStorm() {
    bus().control("faults clear");
    // Ahead of the return that is measured.
    if (descriptors_.lift()) bus().dropMeasurement();
    plugIn();
    strangers_.clear();
    removeOtherClients();
    dawdler_ = {};
    disk_.free();
    disk_.moveLogFolder(false);
    for (NonBlockingClient* client : {&cae(), &io(), &mon()}) client->stall(false);
}

}  // namespace reliability
