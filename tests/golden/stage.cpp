#include "tests/golden/stage.h"

#include <signal.h>

#include <algorithm>
#include <filesystem>
#include <stdexcept>
#include <thread>

#include "tests/golden/dialogue_settings.h"
#include "tests/golden/log_lines.h"
#include "tests/support/process/private_view.h"
#include "tests/support/text/text_escape.h"
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

void Stage::perform(const Step& step) {
    const std::string& argument = step.argument;
    if (step.verb == "start") {
        start();
    } else if (step.verb == "connect") {
        connect(argument);
    } else if (step.verb == "refused") {
        awaitRefusal(argument);
    } else if (step.verb == "close") {
        client(argument);
        clients_.erase(argument);
    } else if (step.verb == "reset") {
        client(argument).connection.reset();
        clients_.erase(argument);
    } else if (step.verb == "send") {
        send(argument);
    } else if (step.verb == "sim") {
        controlBus(argument);
    } else if (step.verb == "silent-adapter") {
        silentAdapters_[argument] = std::make_unique<support::SilentAdapter>(argument);
    } else if (step.verb == "signal") {
        signal(argument);
    } else if (step.verb == "quiet") {
        // Whatever comes meanwhile is left over, and shows after it.
        std::this_thread::sleep_for(readSeconds(argument));
    } else {
        throw std::runtime_error("unknown action \"" + step.verb + "\"");
    }
}

void Stage::start() {
    const std::string end = daemon_.start();
    if (end != "status 0") throw std::runtime_error("the started process ends with " + end);
    started_ = true;
}

void Stage::controlBus(const std::string& line) {
    if (!bus_) throw std::runtime_error("this dialogue has no simulated bus");
    for (const auto& answer : bus_->control(line)) {
        // Details of a card are indented; expectations begin behind their blanks.
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

void Stage::send(const std::string& argument) {
    const auto blank = argument.find(' ');
    const std::string bytes = blank == std::string::npos ? "" : argument.substr(blank + 1);
    if (bytes.size() < 2 || bytes.front() != '"' || bytes.back() != '"') {
        throw std::runtime_error("expected: send CLIENT \"BYTES\"");
    }
    const std::string name = argument.substr(0, blank);
    client(name).connection.send(support::unescapeBytes(bytes.substr(1, bytes.size() - 2)));
    lastSender_ = name;
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
        // Everybody loses the connection when the daemon ends.
        const bool byDaemonsEnd = stopping_ || endReported_;
        if (client.connection.closedByPeer() && !client.closeReported && !byDaemonsEnd) {
            client.closeReported = true;
            items.push_back({name, ItemKind::kClosed, ""});
        }
    }
}

// Before the other channels are read, so that its last words are not missed.
void Stage::collectEnd(std::vector<Item>& items) {
    if (!started_ || endReported_ || daemon_.running()) return;
    endReported_ = true;
    items.push_back({"exit", ItemKind::kLine, daemon_.waitForEnd()});
}

std::string Stage::finish() {
    stopping_ = true;
    std::string problems;
    // A status that has been collected has been judged.
    if (started_) problems += endReported_ ? daemon_.standardError() : daemon_.stop();
    if (bus_) problems += bus_->stop();
    return problems;
}

std::string Stage::frameLog() const {
    constexpr std::size_t kLines = 60;
    return bus_ ? bus_->traceTail(kLines) : "";
}

}  // namespace golden
