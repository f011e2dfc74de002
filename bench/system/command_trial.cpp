#include "bench/system/buses.h"
#include "bench/system/command_sender.h"
#include "bench/system/daemon_session.h"
#include "bench/system/failure.h"
#include "bench/system/gateway.h"
#include "bench/system/processor_time.h"
#include "bench/system/trial.h"
#include "lib/text/hexadecimal.h"
#include "tests/support/wait.h"

namespace bench {
namespace {

constexpr int kFullSpeed = 100;
/// The longest cycle there is here: fifteen polls on the wire and a command.
constexpr double kFullCycle = 0.0033;
/// A cycle of a quiet bus, or of a gateway: a command and a bit.
constexpr double kQuietCycle = 0.0005;

CommandSender::Language daemonLanguage() {
    return {[](std::uint8_t value) {
                return "a" + zolt_text::hexDigit(kOutputCard) + "b0d" + zolt_text::hexByte(value) +
                       "\r\n";
            },
            ""};
}

// The card's other block stays as the daemon presets it.
CommandSender::Language gatewayLanguage() {
    return {[](std::uint8_t value) {
                return std::string{
                    '\5',  '\x10', static_cast<char>(kOutputCard), '\2', static_cast<char>(value),
                    '\xFF'};
            },
            "\1\6"};
}

// Polling has ended when nothing comes for longer than a cycle.
void awaitQuiet(const Slave& slave) {
    constexpr std::chrono::milliseconds kStill{50};
    const auto quiet = [&] {
        Time last{};
        for (const auto& polls : slave.polls()) last = std::max(last, polls.last);
        return Clock::now() - last > kStill;
    };
    if (!support::waitUntil(quiet)) throw Failure("polling does not end");
}

}  // namespace

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
