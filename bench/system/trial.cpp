#include "bench/system/trial.h"

#include "tests/reliability/resources.h"

namespace bench {

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

void Trial::addHoldings(const std::string& figure, pid_t process) {
    const auto resources = reliability::resourcesAtRest(process);
    add(figure + ".resident", static_cast<double>(resources.residentKib));
    add(figure + ".private", static_cast<double>(resources.anonymousKib));
    add("threads", static_cast<double>(resources.threads));
}

void Trial::close(const Slave& slave) {
    lateness_.add(slave.lateness());
}

}  // namespace bench
