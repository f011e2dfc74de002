#include "bench/system/daemon_session.h"

#include <filesystem>

#include "bench/system/expect.h"
#include "bench/system/failure.h"
#include "tests/support/daemon_settings.h"
#include "tests/support/wait.h"

namespace bench {
namespace {

constexpr unsigned kAllCards = 16;

std::string hexDigit(unsigned value) {
    return sim::hexDigit(static_cast<std::uint8_t>(value));
}

void configure(std::optional<int> percent) {
    support::DaemonSettings settings;
    settings.percent = percent;
    settings.polling = true;
    settings.discover = true;
    support::writeConfiguration(settings.toXml());
    std::filesystem::remove(support::DaemonSettings::defaultLogFile());
}

}  // namespace

DaemonSession::DaemonSession(const std::string& program, std::optional<int> percent,
                             const Slave* slave, const Placement& placement)
    : daemon_(program) {
    configure(percent);
    placement.asContestant();
    const Time begin = Clock::now();
    const std::string end = daemon_.start();
    placement.asClient();
    if (end != "status 0") throw Failure(program + ": the started process ends with " + end);
    connectClients(begin);
    if (slave != nullptr) awaitDiscovery(begin, *slave);
}

void DaemonSession::connectClients(Time begin) {
    io_ = support::TcpClient::connect(support::kIoPort);
    cae_ = support::TcpClient::connect(support::kCaePort);
    served_ = secondsBetween(begin, expect(*io_, "ZOLT IO interface is ready\r\n\r"));
    expect(*cae_, "ZOLT CAE interface is ready\r\n(Type HELP for help)\r\n>\r\n\r");
}

void DaemonSession::awaitDiscovery(Time begin, const Slave& slave) {
    if (!support::waitUntil([&] { return slave.discovered().has_value(); })) {
        throw Failure("the bus is not discovered");
    }
    discovered_ = secondsBetween(begin, *slave.discovered());
}

void DaemonSession::ask(const std::string& command, const std::string& line) {
    cae_->send(command + "\r\n");
    expect(*cae_, line + "\r\n\r>\r\n\r");
}

void DaemonSession::setSpeed(int percent) {
    const std::string number = std::to_string(percent);
    ask("SPEED=" + number, "CIA: SPEED IS SET to " + number + "%");
}

void DaemonSession::setPolled(unsigned cards) {
    for (unsigned card = 0; card < kAllCards; ++card) {
        const std::string command = card < cards ? "POLLON" : "POLLOFF";
        ask(command + ":" + hexDigit(card),
            "CIA: " + command + " is OK at address " + hexDigit(card));
    }
}

void DaemonSession::setPolling(bool on) {
    if (on) {
        ask("ENABLEPOLL", "CIA: GLOBAL POLLING IS ENABLED");
    } else {
        ask("DISABLEPOLL", "CIA: GLOBAL POLLING IS DISABLED");
    }
}

void DaemonSession::stop() {
    if (const std::string problems = daemon_.stop(); !problems.empty()) throw Failure(problems);
}

std::size_t linkLosses() {
    std::size_t losses = 0;
    bool found = false;
    for (const std::string& line :
         support::splitLines(support::readFile(support::DaemonSettings::defaultLogFile()))) {
        if (line.find("hardware found") != std::string::npos) found = true;
        if (found && line.find("comm timeout") != std::string::npos) {
            found = false;
            ++losses;
        }
    }
    return losses;
}

}  // namespace bench
