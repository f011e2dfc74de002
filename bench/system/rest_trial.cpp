#include <thread>

#include "bench/report/figures.h"
#include "bench/system/buses.h"
#include "bench/system/daemon_session.h"
#include "bench/system/expect.h"
#include "bench/system/processor_time.h"
#include "bench/system/trial.h"

namespace bench {
namespace {

constexpr int kFullSpeed = 100;
// Until a new speed has reached every loop.
constexpr std::chrono::milliseconds kSettle{50};

}  // namespace

void Trial::rest() {
    if (contestant_.role != Role::kDaemon) return;
    restOn(kRestBuses[0], nullptr);
    for (const auto& [bus, text] :
         {std::pair{kRestBuses[1], std::string()}, std::pair{kRestBuses[2], sixteenInputs()}}) {
        Slave slave(text, placement_);
        restOn(bus, &slave);
        close(slave);
    }
}

void Trial::restOn(const std::string& bus, Slave* slave) {
    const Time begin = Clock::now();
    DaemonSession daemon(contestant_.program, std::nullopt, slave, placement_);
    const std::string key = "rest." + bus + ".";
    std::this_thread::sleep_for(kSettle);
    restAt(key + kRestSpeeds[0], daemon, slave, begin);
    if (bus == kRestBuses[1]) addHoldings("memory", daemon.number());
    if (bus == kRestBuses[2]) addHoldings("memory.sixteen", daemon.number());
    daemon.setSpeed(kFullSpeed);
    std::this_thread::sleep_for(kSettle);
    restAt(key + kRestSpeeds[1], daemon, slave, begin);
    daemon.stop();
}

void Trial::restAt(const std::string& key, const DaemonSession& daemon, const Slave* slave,
                   Time started) {
    const std::size_t exchanges = slave != nullptr ? slave->exchanges() : 0;
    const double processor = processorSeconds(daemon.number());
    const Time begin = Clock::now();
    std::this_thread::sleep_for(effort_.rest);
    const Time end = Clock::now();
    const double took = secondsBetween(begin, end);
    // Without an adapter it is the daemon's children that look for one, now and then.
    const double children = childSeconds(daemon.number()) / secondsBetween(started, end);
    const double own = (processorSeconds(daemon.number()) - processor) / took;
    add(key + ".cpu", 100 * (own + children));
    if (slave == nullptr) return;
    add(key + ".exchanges", static_cast<double>(slave->exchanges() - exchanges) / took);
}

}  // namespace bench
