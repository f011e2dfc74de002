#include <array>
#include <thread>

#include "bench/report/figures.h"
#include "bench/system/cards/buses.h"
#include "bench/system/contestants/child_program.h"
#include "bench/system/contestants/daemon_session.h"
#include "bench/system/machine/processor_time.h"
#include "bench/system/trials/conditions.h"
#include "bench/system/trials/input_measures.h"
#include "bench/system/trials/trial.h"

namespace bench {
namespace {

void sleepFor(Clock::duration time) {
    std::this_thread::sleep_for(time);
}

std::string changeKey(unsigned cards) {
    return "change." + std::to_string(cards);
}

}  // namespace

void Trial::daemonInputs() {
    Slave slave(sixteenInputs(), placement_);
    DaemonSession daemon(contestant_.program, kFullSpeed, &slave, placement_, tally_);
    add("start.served", daemon.untilServed());
    add("start.discovered", daemon.untilDiscovered());
    awaitPolls(slave);
    std::vector<std::uint8_t> values(kAllCards);
    const auto latencies = [&](unsigned cards, double scans) {
        return changes(daemon, slave, cards, effort_.changes, scans, values);
    };
    for (const unsigned cards : effort_.cards) {
        daemon.setPolled(cards);
        const double scans = scansPerSecond(slave, cards, effort_.scans, sleepFor);
        add(scansKey(cards), scans);
        if (cards != 1 && cards != kAllCards) continue;
        addLatencies(changeKey(cards), latencies(cards, scans));
        slave.setBaud(0);
        const double unheld = scansPerSecond(slave, cards, effort_.scans, sleepFor);
        add(scansKey(cards) + ".unheld", unheld);
        if (cards == 1) addLatencies(changeKey(cards) + ".unheld", latencies(cards, unheld));
        slave.setBaud(kBaud);
    }
    speeds(daemon, slave, values);
    daemon.stop();
    close(slave);
}

std::vector<double> Trial::changes(DaemonSession& daemon, Slave& slave, unsigned cards,
                                   std::size_t count, double scans,
                                   std::vector<std::uint8_t>& values) {
    // Each change is awaited before the next, so that at most one is missing when this
    // fails.
    ++tally_.reportsLost;
    auto latencies = changeLatencies(slave, daemon.io(), cards, count, 1 / scans, random_, values);
    --tally_.reportsLost;
    return latencies;
}

void Trial::speeds(DaemonSession& daemon, Slave& slave, std::vector<std::uint8_t>& values) {
    for (const int percent : kSpeeds) {
        daemon.setSpeed(percent);
        const double processor = processorSeconds(daemon.number());
        const Time begin = Clock::now();
        const double scans = scansPerSecond(slave, kAllCards, effort_.scans, sleepFor);
        const double took = std::chrono::duration<double>(Clock::now() - begin).count();
        add(speedKey(percent, "cpu"), 100 * (processorSeconds(daemon.number()) - processor) / took);
        add(speedKey(percent, "scans"), scans);
        const auto latencies =
            changes(daemon, slave, kAllCards, effort_.changesPerSpeed, scans, values);
        add(speedKey(percent, "p50"), percentile(latencies, 50));
    }
}

void Trial::bareLoopInputs() {
    Slave slave(sixteenInputs(), placement_);
    double processor = 0;
    const auto scans = [&](unsigned cards) {
        const ChildProgram loop({contestant_.program, kAdapter, std::to_string(cards)}, placement_);
        awaitPolls(slave);
        const double used = processorSeconds(loop.number());
        const Slave::Polls before = slave.allPolls();
        const double perSecond = scansPerSecond(slave, cards, effort_.scans, sleepFor);
        const Slave::Polls after = slave.allPolls();
        const auto exchanges = static_cast<double>(after.count - before.count);
        processor = (processorSeconds(loop.number()) - used) / exchanges;
        return perSecond;
    };
    for (const unsigned cards : effort_.cards) add(scansKey(cards), scans(cards));
    // The value is that of the last loop, which has the most cards.
    add("exchange.cpu", 1e6 * processor);
    slave.setBaud(0);
    for (const unsigned cards : {1U, kAllCards}) add(scansKey(cards) + ".unheld", scans(cards));
    close(slave);
}

void Trial::gatewayInputs() {
    Slave slave(sixteenInputs(), placement_);
    Gateway gateway(contestant_.role, placement_);
    const auto scansOf = [&](unsigned cards, GatewayPolling& polling) {
        return scansPerSecond(slave, cards, effort_.scans,
                              [&](Clock::duration time) { polling.pollFor(time); });
    };
    for (const unsigned cards : effort_.cards) {
        GatewayPolling polling(slave, gateway.client(), cards);
        const double scans = scansOf(cards, polling);
        add(scansKey(cards), scans);
        if (cards != 1 && cards != kAllCards) continue;
        addLatencies(changeKey(cards),
                     polling.changeLatencies(effort_.changes, 1 / scans, random_));
        slave.setBaud(0);
        const double unheld = scansOf(cards, polling);
        add(scansKey(cards) + ".unheld", unheld);
        if (cards == 1) {
            addLatencies(changeKey(cards) + ".unheld",
                         polling.changeLatencies(effort_.changes, 1 / unheld, random_));
        }
        slave.setBaud(kBaud);
    }
    close(slave);
}

}  // namespace bench
