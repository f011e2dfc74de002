#include <thread>

#include "bench/report/figures.h"
#include "bench/system/basics/clock.h"
#include "bench/system/cards/buses.h"
#include "bench/system/contestants/daemon_session.h"
#include "bench/system/machine/processor_time.h"
#include "bench/system/trials/conditions.h"
#include "bench/system/trials/trial.h"

namespace bench {

void Trial::rest() {
    if (contestant_.role != Role::kDaemon) return;
    restWithoutAdapter(kRestSpeeds[0], std::nullopt);
    restWithoutAdapter(kRestSpeeds[1], kFullSpeed);
    for (const auto& [bus, text] :
         {std::pair{kRestBuses[1], std::string()}, std::pair{kRestBuses[2], sixteenInputs()}}) {
        Slave slave(text, placement_);
        restOn(bus, slave);
        close(slave);
    }
}

// Children of the daemon look for an adapter now and then. Their processor time is known when
// the daemon has ended.
void Trial::restWithoutAdapter(const std::string& speed, std::optional<int> percent) {
    const Time begin = Clock::now();
    DaemonSession daemon(contestant_.program, percent, nullptr, placement_, tally_);
    std::this_thread::sleep_for(kSpeedSettles);
    const double before = processorSeconds(daemon.number());
    const Time settled = Clock::now();
    std::this_thread::sleep_until(begin + effort_.searches);
    const double own = processorSeconds(daemon.number()) - before;
    const Time end = Clock::now();
    daemon.stop();
    add(std::string("rest.") + kRestBuses[0] + "." + speed + ".cpu",
        100 * (own / secondsBetween(settled, end) +
               daemon.childSeconds() / secondsBetween(begin, end)));
}

void Trial::restOn(const std::string& bus, Slave& slave) {
    DaemonSession daemon(contestant_.program, std::nullopt, &slave, placement_, tally_);
    const std::string key = "rest." + bus + ".";
    std::this_thread::sleep_for(kSpeedSettles);
    restAt(key + kRestSpeeds[0], daemon, slave);
    const bool empty = bus == kRestBuses[1];
    const auto threads = addHoldings(empty ? "memory" : "memory.sixteen", daemon.number());
    if (empty) add("threads", static_cast<double>(threads));
    daemon.setSpeed(kFullSpeed);
    std::this_thread::sleep_for(kSpeedSettles);
    restAt(key + kRestSpeeds[1], daemon, slave);
    daemon.stop();
}

void Trial::restAt(const std::string& key, const DaemonSession& daemon, const Slave& slave) {
    const Slave::Polls polled = slave.allPolls();
    const double processor = processorSeconds(daemon.number());
    const Time begin = Clock::now();
    std::this_thread::sleep_for(effort_.rest);
    const double took = secondsBetween(begin, Clock::now());
    add(key + ".cpu", 100 * (processorSeconds(daemon.number()) - processor) / took);
    const Slave::Polls now = slave.allPolls();
    if (now.count == polled.count) return;
    add(key + ".exchanges", static_cast<double>(now.count - polled.count) / took);
    add(key + ".held", 100 * std::chrono::duration<double>(now.held - polled.held).count() / took);
}

}  // namespace bench
