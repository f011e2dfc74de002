#include "bench/system/trials/trial.h"

#include <fstream>

#include "tests/support/process/resources.h"

namespace bench {
namespace {

// The memory that the end of the process would free: no other process has these pages.
std::size_t privateKib(pid_t process) {
    std::ifstream rollup("/proc/" + std::to_string(process) + "/smaps_rollup");
    std::size_t sum = 0;
    for (std::string name; rollup >> name;) {
        std::size_t kib = 0;
        if (name.starts_with("Private_") && rollup >> kib) sum += kib;
        std::getline(rollup, name);
    }
    return sum;
}

}  // namespace

void Trial::inputs() {
    switch (contestant_.role) {
        case Role::kDaemon:
            daemonInputs();
            break;
        case Role::kBareLoop:
            bareLoopInputs();
            break;
        case Role::kTunedGateway:
        case Role::kShippedGateway:
            gatewayInputs();
            break;
    }
}

void Trial::commands() {
    switch (contestant_.role) {
        case Role::kDaemon:
            daemonCommands();
            break;
        case Role::kBareLoop:
            break;
        case Role::kTunedGateway:
        case Role::kShippedGateway:
            gatewayCommands();
            break;
    }
}

void Trial::addLatencies(const std::string& figure, const std::vector<double>& microseconds) {
    add(figure + ".p50", percentile(microseconds, 50));
    add(figure + ".p99", percentile(microseconds, 99));
}

void Trial::addProcessor(const std::string& figure, double seconds, std::size_t commands) {
    add(figure, seconds * 1000 / static_cast<double>(commands));
}

std::size_t Trial::addHoldings(const std::string& figure, pid_t process) {
    const auto resources = support::resourcesAtRest(process);
    add(figure + ".resident", static_cast<double>(resources.residentKib));
    add(figure + ".private", static_cast<double>(privateKib(process)));
    return resources.threads;
}

void Trial::close(const Slave& slave) {
    lateness_.add(slave.lateness());
}

}  // namespace bench
