#include "bench/system/contestants/daemon_session.h"

#include <signal.h>
#include <sys/resource.h>
#include <sys/wait.h>

#include <filesystem>

#include "bench/report/judgement.h"
#include "bench/system/basics/expect.h"
#include "bench/system/basics/failure.h"
#include "bench/system/cards/buses.h"
#include "bench/system/machine/processor_time.h"
#include "lib/text/hexadecimal.h"
#include "tests/support/process/daemon_settings.h"
#include "tests/support/wait.h"

namespace bench {
namespace {

void configure(std::optional<int> percent) {
    support::DaemonSettings settings;
    settings.percent = percent;
    settings.polling = true;
    settings.discover = true;
    support::writeConfiguration(settings.toXml());
}

bool hasEnded(pid_t child) {
    siginfo_t info{};
    // WNOWAIT leaves the child to be waited for.
    return ::waitid(P_PID, static_cast<id_t>(child), &info, WEXITED | WNOHANG | WNOWAIT) == 0 &&
           info.si_pid == child;
}

}  // namespace

LinkWatch::LinkWatch(Tally& tally) : tally_(tally) {
    std::filesystem::remove(support::DaemonSettings::defaultLogFile());
}

LinkWatch::~LinkWatch() {
    tally_.linkLosses += linkLosses(support::readFile(support::DaemonSettings::defaultLogFile()));
}

DaemonSession::DaemonSession(const std::string& program, std::optional<int> percent,
                             const Slave* slave, const Placement& placement, Tally& tally)
    : linkWatch_(tally), daemon_(program) {
    configure(percent);
    placement.asContestant();
    const Time begin = Clock::now();
    const std::string end = daemon_.start();
    placement.asClient();
    if (end != "status 0") throw Failure("the started process ends with " + end);
    reapedBefore_ = usedSeconds(RUSAGE_CHILDREN);
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
        ask(command + ":" + zolt_text::hexDigit(card),
            "CIA: " + command + " is OK at address " + zolt_text::hexDigit(card));
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
    daemon_.signal(SIGTERM);
    support::waitUntil([&] { return hasEnded(number()); });
    const double own = processorSecondsUpToNow(number());
    if (const std::string problems = daemon_.stop(); !problems.empty()) throw Failure(problems);
    childSeconds_ = usedSeconds(RUSAGE_CHILDREN) - reapedBefore_ - own;
}

}  // namespace bench
