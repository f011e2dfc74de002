#include "tests/reliability/accounts/watched_daemon.h"

#include <thread>

namespace reliability {
namespace {

constexpr std::chrono::milliseconds kTick{2};

const std::string& prepared(const std::string& busText, const support::DaemonSettings& settings) {
    support::writeConfiguration(settings.toXml());
    return busText;
}

/// The reply to FORCEDISCOVER on the bus of the traffic.
std::string trafficBusList() {
    return consoleReply({"FORCED DISCOVER LIST:", "DTI:0x0:6 channel RC SERVO CONTROLLER",
                         "DTI:0x1:16 channel DIGITAL INPUT", "DTI:0x2:16 channel DIGITAL INPUT",
                         "DTI:0x3:16 channel DIGITAL INPUT", "DTI:0x4:16 channel DIGITAL INPUT",
                         "DTI:0x5:16 channel DIGITAL OUTPUT", "DTI:0x6:16 channel DIGITAL INPUT",
                         "DTI:0x7:16 channel DIGITAL INPUT", "DTI:0x8:KEYMX and ROTE CONTROLLER",
                         "DTI:0x9:IR REMOTE CONTROLLER", "DTI:0xA:3 channel DC MOTOR CONTROLLER",
                         "DTI:0xB:16 channel DIGITAL INPUT", "DTI:0xC:16 channel DIGITAL INPUT",
                         "DTI:0xD:EMPTY", "DTI:0xE:ALPHANUMERIC LCD CONTROLLER",
                         "DTI:0xF:6 channel ANALOGUE INPUT"});
}

}  // namespace

WatchedDaemon::WatchedDaemon(const support::DaemonSettings& settings, const std::string& busText)
    : bus_(prepared(busText, settings), "/dev/ttyUSB0") {
    start();
}

void WatchedDaemon::start() {
    if (const auto end = daemon_.start(); end != "status 0") {
        throw Failure("the started process ends with " + end);
    }
}

void WatchedDaemon::tick() {
    for (NonBlockingClient* client : {&cae_, &io_, &mon_}) client->tick();
    if (!daemon_.running()) {
        throw Failure("the daemon has ended with " + daemon_.waitForEnd() + "\n" +
                      daemon_.standardError());
    }
}

void WatchedDaemon::await(const std::string& what, const std::function<bool()>& done) {
    const auto deadline = support::Clock::now() + kHang;
    while (!done()) {
        if (support::Clock::now() > deadline) throw Failure(what + " does not come");
        tick();
        std::this_thread::sleep_for(kTick);
    }
}

void WatchedDaemon::serveClients() {
    await("a welcome on all three ports", [this] {
        bool all = true;
        for (NonBlockingClient* client : {&cae_, &io_, &mon_}) {
            if (!client->wanted()) client->connect();
            all = all && client->served();
        }
        return all;
    });
}

void WatchedDaemon::ask(const std::string& line, const std::string& reply) {
    cae_.send(line + "\r\n");
    await("the console's answer to " + line,
          [&] { return cae_.received().find(reply) != std::string::npos; });
    cae_.take();
}

void WatchedDaemon::findLink() {
    const auto deadline = support::Clock::now() + kHang;
    for (bool answered = false; !answered;) {
        if (support::Clock::now() > deadline) throw Failure("the link does not come");
        cae_.take();
        cae_.send("REBOOT:E\r\n");
        await("the console's answer to REBOOT",
              [this] { return cae_.received().find(">\r\n\r") != std::string::npos; });
        answered = cae_.take().find("RBT:0xE:OK") != std::string::npos;
    }
}

void WatchedDaemon::findCards() {
    const std::string wanted = trafficBusList();
    std::string got;
    const auto deadline = support::Clock::now() + kHang;
    while (got.find(wanted) == std::string::npos) {
        if (support::Clock::now() > deadline) throw Failure("not every card is found: " + got);
        cae_.take();
        cae_.send("FORCEDISCOVER\r\n");
        await("the console's answer to FORCEDISCOVER", [this] {
            const std::string& text = cae_.received();
            const auto list = text.find("FORCED DISCOVER LIST:");
            return list != std::string::npos && text.find(">\r\n\r", list) != std::string::npos;
        });
        got = cae_.take();
    }
}

void WatchedDaemon::stop() {
    if (const auto problems = daemon_.stop(); !problems.empty()) throw Failure(problems);
}

std::string consoleReply(const std::vector<std::string>& lines) {
    std::string text;
    for (const auto& line : lines) text += line + "\r\n\r";
    return text + ">\r\n\r";
}

}  // namespace reliability
