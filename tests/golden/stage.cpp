#include "tests/golden/stage.h"

#include <signal.h>

#include <algorithm>
#include <filesystem>
#include <stdexcept>
#include <thread>

#include "lib/text/escape.h"
#include "tests/golden/boot.h"
#include "tests/golden/dialogue_settings.h"
#include "tests/golden/log_lines.h"
#include "tests/support/process/private_view.h"
#include "tests/support/wait.h"

namespace golden {
namespace {

std::uint16_t portOf(const std::string& channel) {
    const std::string interface = clientInterface(channel);
    if (interface == "cae") return support::kCaePort;
    if (interface == "io") return support::kIoPort;
    if (interface == "mon") return support::kMonPort;
    throw std::runtime_error("\"" + channel + "\" is not a client");
}

void removeAdapters() {
    for (const auto& entry : std::filesystem::directory_iterator("/dev")) {
        if (entry.path().filename().string().starts_with("ttyUSB")) {
            std::filesystem::remove(entry.path());
        }
    }
}

}  // namespace

Stage::Stage(const Setup& setup)
    : setup_(setup),
      busTrace_(setup.pollsShown),
      log_(support::DaemonSettings::defaultLogFile()),
      output_(support::standardOutputFile()),
      errors_(support::standardErrorFile()) {
    support::enterTestBed();
    removeAdapters();
    std::filesystem::remove(support::kPidFile);
    support::writeConfiguration(setup_.configuration.value_or(setup_.settings.toXml()));
    systemLog_ = std::make_unique<support::SystemLog>();
    if (setup_.bus) {
        support::SimProcess::Options options;
        options.bus = *setup_.bus;
        options.link = setup_.link;
        options.baud = setup_.baud;
        bus_ = std::make_unique<support::SimProcess>(options);
    }
}

// A new action is one row here, and one in docs/dialogues.md.
const std::map<std::string, void (Stage::*)(const std::string&), std::less<>>& Stage::actions() {
    static const std::map<std::string, void (Stage::*)(const std::string&), std::less<>> rows = {
        {"boot", &Stage::boot},
        {"start", &Stage::start},
        {"connect", &Stage::connect},
        {"refused", &Stage::awaitRefusal},
        {"close", &Stage::close},
        {"reset", &Stage::reset},
        {"send", &Stage::send},
        {"sim", &Stage::controlBus},
        {"silent-adapter", &Stage::addSilentAdapter},
        {"signal", &Stage::signal},
        {"quiet", &Stage::keepQuiet},
    };
    return rows;
}

bool Stage::hasAction(std::string_view verb) {
    return actions().contains(verb);
}

void Stage::perform(const Step& step) {
    (this->*actions().at(step.verb))(step.argument);
}

void Stage::boot(const std::string& clients) {
    start("");
    for (const auto& client : bootClients(clients)) connect(client);
}

void Stage::start(const std::string& /*argument*/) {
    const std::string end = daemon_.start();
    if (end != "status 0") throw std::runtime_error("the started process ends with " + end);
    started_ = true;
}

void Stage::controlBus(const std::string& line) {
    if (!bus_) throw std::runtime_error("this dialogue has no simulated bus");
    for (const auto& answer : bus_->control(line)) {
        // Details of a card are indented; expectations begin after these blanks.
        const auto start = std::min(answer.find_first_not_of(' '), answer.size());
        busAnswers_.push_back({"sim", ItemKind::kLine, answer.substr(start)});
    }
}

void Stage::connect(const std::string& name) {
    auto connection = support::TcpClient::connect(portOf(name));
    clients_.insert_or_assign(name, Client{std::move(connection)});
}

void Stage::awaitRefusal(const std::string& interface) {
    // The port may still be open for a moment after the close has been logged.
    if (!support::waitUntil(
            [&] { return !support::TcpClient::tryConnect(portOf(interface)).has_value(); })) {
        throw std::runtime_error("the port of " + interface + " is not refused");
    }
}

void Stage::close(const std::string& name) {
    client(name);
    clients_.erase(name);
}

void Stage::reset(const std::string& name) {
    client(name).connection.reset();
    clients_.erase(name);
}

void Stage::send(const std::string& argument) {
    const auto blank = argument.find(' ');
    const std::string bytes = blank == std::string::npos ? "" : argument.substr(blank + 1);
    if (bytes.size() < 2 || bytes.front() != '"' || bytes.back() != '"') {
        throw std::runtime_error("expected: send CLIENT \"BYTES\"");
    }
    const std::string name = argument.substr(0, blank);
    client(name).connection.send(zolt_text::unescape(bytes.substr(1, bytes.size() - 2)));
    lastSender_ = name;
}

void Stage::addSilentAdapter(const std::string& path) {
    silentAdapters_[path] = std::make_unique<support::SilentAdapter>(path);
}

// Whatever comes during the pause is left over, and the runner reports it afterwards.
void Stage::keepQuiet(const std::string& seconds) {
    std::this_thread::sleep_for(readSeconds(seconds));
}

void Stage::signal(const std::string& name) {
    const std::map<std::string, int> numbers = {{"TERM", SIGTERM}, {"INT", SIGINT}};
    const auto found = numbers.find(name);
    if (found == numbers.end()) throw std::runtime_error("expected: signal TERM|INT");
    daemon_.signal(found->second);
    stopping_ = true;
}

Stage::Client& Stage::client(const std::string& name) {
    const auto found = clients_.find(name);
    if (found == clients_.end()) {
        throw std::runtime_error("no client \"" + name + "\" is connected");
    }
    return found->second;
}

void Stage::waitForReads() {
    const auto sender = clients_.find(lastSender_);
    if (sender == clients_.end()) return;
    support::waitUntil([&] { return sender->second.connection.peerHasReadAll(); });
}

std::vector<Item> Stage::collect() {
    std::vector<Item> items;
    collectEnd(items);
    collectClients(items);
    if (bus_) {
        for (const auto& line : bus_->readNewTrace()) {
            for (auto& item : busTrace_.read(line)) items.push_back(std::move(item));
        }
    }
    items.insert(items.end(), busAnswers_.begin(), busAnswers_.end());
    busAnswers_.clear();
    for (const auto& line : log_.readNewLines()) items.push_back(logItem(line));
    for (auto& line : systemLog_->readNew()) items.push_back({"syslog", ItemKind::kLine, line});
    if (auto text = output_.readNew(); !text.empty()) {
        items.push_back({"stdout", ItemKind::kBytes, text});
    }
    if (auto text = errors_.readNew(); !text.empty()) {
        items.push_back({"stderr", ItemKind::kBytes, text});
    }
    if (stopping_) std::erase_if(items, isShutdownNoise);
    return items;
}

void Stage::collectClients(std::vector<Item>& items) {
    for (auto& [name, client] : clients_) {
        if (auto bytes = client.connection.receive(); !bytes.empty()) {
            items.push_back({name, ItemKind::kBytes, bytes});
        }
        // Every client loses its connection when the daemon ends.
        const bool byDaemonsEnd = stopping_ || endReported_;
        if (client.connection.closedByPeer() && !client.closeReported && !byDaemonsEnd) {
            client.closeReported = true;
            items.push_back({name, ItemKind::kClosed, ""});
        }
    }
}

// Called before the other channels are read, so that the daemon's last output is not missed.
void Stage::collectEnd(std::vector<Item>& items) {
    if (!started_ || endReported_ || daemon_.running()) return;
    endReported_ = true;
    items.push_back({"exit", ItemKind::kLine, daemon_.waitForEnd()});
}

std::string Stage::finish() {
    stopping_ = true;
    std::string problems;
    // An exit status that has been collected has been compared with the dialogue.
    if (started_) problems += endReported_ ? daemon_.standardError() : daemon_.stop();
    if (bus_) problems += bus_->stop();
    return problems;
}

std::string Stage::frameLog() const {
    constexpr std::size_t kLines = 60;
    return bus_ ? bus_->traceTail(kLines) : "";
}

}  // namespace golden
