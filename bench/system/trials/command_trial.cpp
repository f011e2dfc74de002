#include "bench/system/cards/buses.h"
#include "bench/system/contestants/daemon_session.h"
#include "bench/system/contestants/gateway.h"
#include "bench/system/machine/processor_time.h"
#include "bench/system/trials/conditions.h"
#include "bench/system/trials/languages.h"
#include "bench/system/trials/trial.h"

namespace bench {
void Trial::sendCommands(CommandSender& sender, pid_t process, Slave& slave) {
    const auto quiet = sender.latencies(effort_.commands, kQuietCycle, random_);
    addLatencies("command.quiet", quiet.toCard);
    addLatencies("command.quiet.port", quiet.toPort);
    if (!quiet.answer.empty()) addLatencies("answer", quiet.answer);

    double processor = processorSeconds(process);
    const auto count = [](std::size_t commands) { return static_cast<double>(commands); };
    add("single.rate", count(effort_.singles) / sender.oneAtATime(effort_.singles));
    addProcessor("single.cpu", processorSeconds(process) - processor, effort_.singles);

    processor = processorSeconds(process);
    add("flood.rate", count(effort_.flood) / sender.flood(effort_.flood));
    addProcessor("flood.cpu", processorSeconds(process) - processor, effort_.flood);

    slave.setBaud(0);
    const auto unheld = sender.latencies(effort_.commands, kQuietCycle, random_);
    addLatencies("command.quiet.unheld", unheld.toCard);
    add("flood.unheld", count(effort_.flood) / sender.flood(effort_.flood));
    slave.setBaud(kBaud);
}

void Trial::daemonCommands() {
    commandsAtFullSpeed();
    commandsAtDefaultSpeed();
}

void Trial::commandsAtFullSpeed() {
    Slave slave(fifteenInputs(), placement_);
    DaemonSession daemon(contestant_.program, kFullSpeed, &slave, placement_, tally_);
    CommandSender sender(slave, daemon.io(), daemonLanguage(), tally_);
    const auto busy = sender.latencies(effort_.commands, kFullCycle, random_);
    addLatencies("command.15", busy.toCard);
    daemon.setPolling(false);
    awaitQuiet(slave);
    sendCommands(sender, daemon.number(), slave);
    daemon.stop();
    close(slave);
}

void Trial::commandsAtDefaultSpeed() {
    Slave slave(fifteenInputs(), placement_);
    DaemonSession daemon(contestant_.program, std::nullopt, &slave, placement_, tally_);
    daemon.setPolling(false);
    awaitQuiet(slave);
    CommandSender sender(slave, daemon.io(), daemonLanguage(), tally_);
    const double processor = processorSeconds(daemon.number());
    sender.oneAtATime(effort_.commands);
    addProcessor("single.default.cpu", processorSeconds(daemon.number()) - processor,
                 effort_.commands);
    daemon.stop();
    close(slave);
}

void Trial::gatewayCommands() {
    Slave slave(fifteenInputs(), placement_);
    Gateway gateway(contestant_.role, placement_);
    CommandSender sender(slave, gateway.client(), gatewayLanguage(), tally_);
    sendCommands(sender, gateway.number(), slave);
    const std::size_t singles = effort_.singles;
    add("single.heard", static_cast<double>(singles) / sender.oneHeardAtATime(singles));
    add("threads", static_cast<double>(addHoldings("memory", gateway.number())));
    close(slave);
}

}  // namespace bench
