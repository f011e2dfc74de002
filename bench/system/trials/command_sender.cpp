#include "bench/system/trials/command_sender.h"

#include <algorithm>
#include <optional>
#include <thread>
#include <utility>

#include "bench/report/judgement.h"
#include "bench/system/basics/expect.h"
#include "bench/system/basics/failure.h"

namespace bench {
namespace {

// As many commands as fit into one read of the daemon, which expects whole lines in a read.
constexpr std::size_t kPacket = 28;

// The daemon finds a lost link again after some three seconds.
constexpr std::chrono::seconds kLongWhile{5};

}  // namespace

CommandSender::CommandSender(Slave& slave, support::TcpClient& client, Language language,
                             Tally& tally)
    : slave_(slave), client_(client), language_(std::move(language)), tally_(tally) {}

CommandSender::~CommandSender() {
    addLost();
}

std::string CommandSender::next() {
    sent_.push_back(value_);
    ++tally_.commandsSent;
    return language_.command(value_++);
}

void CommandSender::begin() {
    addLost();
    slave_.forgetOutputs();
    sent_.clear();
}

void CommandSender::addLost() {
    std::vector<std::uint8_t> arrived;
    for (const Slave::Output& output : slave_.outputs()) {
        if (output.card == kOutputCard) arrived.push_back(output.value);
    }
    tally_.commandsLost += missing(sent_, arrived);
}

Slave::Output CommandSender::arrived(std::size_t number) {
    const auto output = slave_.awaitOutput(number, kLost);
    if (!output) throw Failure("command " + std::to_string(number) + " does not reach the card");
    if (output->card != kOutputCard || output->value != sent_[number]) {
        throw Failure("something else than command " + std::to_string(number) + " reaches a card");
    }
    return *output;
}

void CommandSender::allArrived(std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) arrived(i);
    if (slave_.outputs().size() > count) throw Failure("a command reaches the card twice");
}

CommandSender::Latencies CommandSender::latencies(std::size_t count, double cycleSeconds,
                                                  RandomTimes& random) {
    Latencies latencies;
    begin();
    for (std::size_t i = 0; i < count; ++i) {
        std::this_thread::sleep_for(random.pause(cycleSeconds));
        const std::string command = next();
        const Time sent = Clock::now();
        client_.send(command);
        const Slave::Output output = arrived(i);
        latencies.toCard.push_back(microsecondsBetween(sent, output.atCard));
        latencies.toPort.push_back(microsecondsBetween(sent, output.atPort));
        if (language_.heard.empty()) continue;
        const Time heard = expect(client_, language_.heard);
        latencies.answer.push_back(std::max(0.0, microsecondsBetween(output.answered, heard)));
    }
    allArrived(count);
    return latencies;
}

std::vector<double> CommandSender::latenciesWithin(Clock::duration time, std::size_t count,
                                                   double cycleSeconds, RandomTimes& random) {
    std::vector<double> latencies;
    begin();
    std::size_t seen = 0;
    for (const Time end = Clock::now() + time; sent_.size() < count && Clock::now() < end;) {
        std::this_thread::sleep_for(random.pause(cycleSeconds));
        const std::string command = next();
        const Time sent = Clock::now();
        client_.send(command);
        // Commands that a lost link has delayed arrive before this one.
        std::optional<Slave::Output> output;
        do {
            output = slave_.awaitOutput(seen++, kLongWhile);
        } while (output && output->value != sent_.back());
        if (!output) return latencies;
        latencies.push_back(microsecondsBetween(sent, output->atCard));
    }
    return latencies;
}

double CommandSender::oneAtATime(std::size_t count) {
    begin();
    const Time begun = Clock::now();
    for (std::size_t i = 0; i < count; ++i) {
        client_.send(next());
        arrived(i);
    }
    const double took = secondsBetween(begun, Clock::now());
    allArrived(count);
    hear(count);
    return took;
}

double CommandSender::oneHeardAtATime(std::size_t count) {
    begin();
    const Time begun = Clock::now();
    for (std::size_t i = 0; i < count; ++i) {
        client_.send(next());
        hear(1);
    }
    const double took = secondsBetween(begun, Clock::now());
    allArrived(count);
    return took;
}

double CommandSender::flood(std::size_t count) {
    begin();
    const Time begun = Clock::now();
    for (std::size_t sent = 0; sent < count;) {
        std::string packet;
        const std::size_t first = sent;
        for (; sent < count && sent < first + kPacket; ++sent) packet += next();
        client_.send(packet);
        // When its first command is at the card, the daemon has read the packet.
        arrived(first);
    }
    arrived(count - 1);
    const double took = secondsBetween(begun, Clock::now());
    allArrived(count);
    hear(count);
    return took;
}

void CommandSender::hear(std::size_t count) {
    if (language_.heard.empty()) return;
    std::string all;
    for (std::size_t i = 0; i < count; ++i) all += language_.heard;
    expect(client_, all);
}

}  // namespace bench
