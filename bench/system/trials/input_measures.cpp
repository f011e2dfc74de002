#include "bench/system/trials/input_measures.h"

#include <algorithm>

#include "bench/report/judgement.h"
#include "bench/system/basics/expect.h"
#include "bench/system/basics/failure.h"
#include "lib/text/hexadecimal.h"

namespace bench {
namespace {

// The step in which to look whether the cards that are no longer polled have had their last
// poll.
constexpr std::chrono::milliseconds kSettle{60};

std::string reportLine(unsigned card, std::uint8_t value) {
    return "a" + zolt_text::hexDigit(card) + "b0d" + zolt_text::hexByte(value) + "\r\n\r";
}

std::string pollRequest(unsigned card) {
    return {'\3', '\x20', static_cast<char>(card), '\2'};
}

std::string pollAnswer(unsigned card, std::uint8_t value) {
    return {'\4', '\x21', static_cast<char>(card), static_cast<char>(value), '\0'};
}

using Polls = std::array<Slave::Polls, zolt_sim::wire::kAddressCount>;

PollCounts difference(const Polls& before, const Polls& after) {
    PollCounts counts{};
    for (std::size_t card = 0; card < counts.size(); ++card) {
        counts[card] = after[card].count - before[card].count;
    }
    return counts;
}

std::string countsText(const PollCounts& counts) {
    std::string text;
    for (const std::size_t count : counts) text += " " + std::to_string(count);
    return text;
}

void settle(const Slave& slave, unsigned cards, const LetPass& letPass) {
    PollCounts polled{};
    for (const Time end = Clock::now() + kLost; Clock::now() < end;) {
        const auto before = slave.polls();
        letPass(kSettle);
        polled = difference(before, slave.polls());
        if (inStep(polled, cards)) return;
    }
    throw Failure("the polled cards do not become " + std::to_string(cards) + ":" +
                  countsText(polled));
}

}  // namespace

double scansPerSecond(const Slave& slave, unsigned cards, Clock::duration window,
                      const LetPass& letPass) {
    settle(slave, cards, letPass);
    const auto before = slave.polls();
    letPass(window);
    const auto after = slave.polls();
    const PollCounts polled = difference(before, after);
    if (!inStep(polled, cards)) {
        throw Failure("with " + std::to_string(cards) + " polled cards the cards were polled" +
                      countsText(polled));
    }
    return static_cast<double>(polled[0]) / secondsBetween(before[0].last, after[0].last);
}

std::vector<double> changeLatencies(Slave& slave, support::TcpClient& io, unsigned cards,
                                    std::size_t count, double scanSeconds, RandomTimes& random,
                                    std::vector<std::uint8_t>& values) {
    std::vector<double> latencies;
    for (std::size_t i = 0; i < count; ++i) {
        const unsigned card = random.below(cards);
        const Time due = Clock::now() + random.pause(scanSeconds);
        slave.changeInput(due, static_cast<std::uint8_t>(card), ++values.at(card));
        const Time come = expect(io, reportLine(card, values[card]));
        latencies.push_back(microsecondsBetween(due, come));
    }
    return latencies;
}

std::pair<Time, std::uint8_t> GatewayPolling::poll() {
    constexpr std::size_t kValue = 3;
    const unsigned card = next_;
    next_ = (next_ + 1) % static_cast<unsigned>(values_.size());
    client_.send(pollRequest(card));
    std::string answer;
    while (answer.size() < pollAnswer(card, 0).size() && client_.waitReadable(kLost)) {
        answer += client_.receive();
        if (client_.closedByPeer()) break;
    }
    const Time come = Clock::now();
    const auto value =
        answer.size() > kValue ? static_cast<std::uint8_t>(answer[kValue]) : std::uint8_t{};
    if (answer != pollAnswer(card, value)) throw Failure("no answer through the gateway");
    return {come, value};
}

void GatewayPolling::pollFor(Clock::duration time) {
    for (const Time end = Clock::now() + time; Clock::now() < end;) poll();
}

Time GatewayPolling::awaitChange(unsigned card, std::uint8_t value) {
    for (const Time end = Clock::now() + kLost; Clock::now() < end;) {
        const unsigned polled = next_;
        const auto [come, now] = poll();
        if (polled == card && now == value) return come;
    }
    throw Failure("a change does not come through the gateway");
}

std::vector<double> GatewayPolling::changeLatencies(std::size_t count, double scanSeconds,
                                                    RandomTimes& random) {
    std::vector<double> latencies;
    for (std::size_t i = 0; i < count; ++i) {
        const unsigned card = random.below(static_cast<unsigned>(values_.size()));
        const Time due = Clock::now() + random.pause(scanSeconds);
        slave_.changeInput(due, static_cast<std::uint8_t>(card), ++values_[card]);
        latencies.push_back(microsecondsBetween(due, awaitChange(card, values_[card])));
    }
    return latencies;
}

}  // namespace bench
