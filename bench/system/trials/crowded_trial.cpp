#include <thread>

#include "bench/report/figures.h"
#include "bench/system/cards/buses.h"
#include "bench/system/contestants/child_program.h"
#include "bench/system/contestants/daemon_session.h"
#include "bench/system/machine/processor_time.h"
#include "bench/system/trials/conditions.h"
#include "bench/system/trials/languages.h"
#include "bench/system/trials/trial.h"

namespace bench {

void Trial::crowdedInputs() {
    Slave slave(sixteenInputs(), placement_);
    if (contestant_.role == Role::kBareLoop) {
        const ChildProgram loop({contestant_.program, kAdapter, std::to_string(kAllCards)},
                                placement_);
        awaitPolls(slave);
        add(scansKey(kAllCards), crowdedScans(slave, effort_.crowdedFloor));
    } else {
        DaemonSession daemon(contestant_.program, kFullSpeed, &slave, placement_, tally_);
        awaitPolls(slave);
        const std::size_t missed = slave.missedAnswers();
        const double processor = processorSeconds(daemon.number());
        const Time begin = Clock::now();
        add(scansKey(kAllCards), crowdedScans(slave, effort_.crowdedScans));
        add("rest.sixteen.full.cpu", 100 * (processorSeconds(daemon.number()) - processor) /
                                         secondsBetween(begin, Clock::now()));
        tally_.answersMissed += slave.missedAnswers() - missed;
        daemon.stop();
    }
    close(slave);
}

double Trial::crowdedScans(const Slave& slave, Clock::duration window) {
    const Slave::Polls before = slave.allPolls();
    const Time begin = Clock::now();
    std::this_thread::sleep_for(window);
    const auto polls = static_cast<double>(slave.allPolls().count - before.count);
    return polls / kAllCards / secondsBetween(begin, Clock::now());
}

void Trial::crowdedCommands() {
    if (contestant_.role != Role::kDaemon) return;
    Slave slave(fifteenInputs(), placement_);
    DaemonSession daemon(contestant_.program, kFullSpeed, &slave, placement_, tally_);
    const std::size_t missed = slave.missedAnswers();
    CommandSender sender(slave, daemon.io(), daemonLanguage(), tally_);
    const auto latencies = [&](double cycle) {
        return sender.latenciesWithin(effort_.crowdedCommands, effort_.commands, cycle, random_);
    };
    addLatencies("command.15", latencies(kFullCycle));
    daemon.setPolling(false);
    awaitQuiet(slave);
    addLatencies("command.quiet", latencies(kQuietCycle));
    tally_.answersMissed += slave.missedAnswers() - missed;
    restInCrowd(kRestSpeeds[1], daemon);
    daemon.setSpeed(kDefaultSpeed);
    std::this_thread::sleep_for(kSpeedSettles);
    restInCrowd(kRestSpeeds[0], daemon);
    daemon.stop();
    close(slave);
}

void Trial::restInCrowd(const std::string& speed, const DaemonSession& daemon) {
    const double processor = processorSeconds(daemon.number());
    const Time begin = Clock::now();
    std::this_thread::sleep_for(effort_.rest);
    add("rest.quiet." + speed + ".cpu", 100 * (processorSeconds(daemon.number()) - processor) /
                                            secondsBetween(begin, Clock::now()));
}

}  // namespace bench
