#pragma once

#include <functional>
#include <string>
#include <vector>

#include "bench/system/basics/random_times.h"
#include "bench/system/basics/tally.h"
#include "bench/system/cards/buses.h"
#include "bench/system/cards/slave.h"
#include "tests/support/tcp/tcp_client.h"

namespace bench {

/// Sends commands to the output card and accounts for each of them at the card.
class CommandSender {
  public:
    /// How a contestant's client writes a command that sets block 0, and what its
    /// client hears back for one.
    struct Language {
        std::function<std::string(std::uint8_t value)> command;
        std::string heard;
    };

    /// Adds to `tally` what it sends, and at its end at the latest what was lost.
    CommandSender(Slave& slave, support::TcpClient& client, Language language, Tally& tally);
    ~CommandSender();
    CommandSender(const CommandSender&) = delete;
    CommandSender& operator=(const CommandSender&) = delete;

    struct Latencies {
        std::vector<double> toCard;
        std::vector<double> toPort;
        /// From the answer at the port to the client; empty when it hears nothing.
        std::vector<double> answer;
    };
    /// Of `count` commands on their own, in microseconds, out of step with the cycle.
    Latencies latencies(std::size_t count, double cycleSeconds, RandomTimes& random);

    /// Microseconds from `count` commands on their own to the last byte of each at the card,
    /// or from as many as `time` allows. A command that is not there after a long while is
    /// lost and has no value, so that a lost link does not end the measurement.
    std::vector<double> latenciesWithin(Clock::duration time, std::size_t count,
                                        double cycleSeconds, RandomTimes& random);

    /// Each returns how long it took, in seconds. One at a time: the next when the
    /// card has answered, or when the client has heard the answer.
    double oneAtATime(std::size_t count);
    double oneHeardAtATime(std::size_t count);
    /// The card's queue never runs empty.
    double flood(std::size_t count);

  private:
    /// The next command, whose value tells it from its neighbours.
    std::string next();
    /// Begins to count anew.
    void begin();
    /// Counts what has been sent since begin() and is not at the card.
    void addLost();
    /// Throws Failure unless command `number` reaches the card as it should.
    Slave::Output arrived(std::size_t number);
    /// Throws Failure unless exactly `count` commands have reached the card.
    void allArrived(std::size_t count);
    /// Waits for the client to hear so many answers, where it hears any.
    void hear(std::size_t count);

    Slave& slave_;
    support::TcpClient& client_;
    Language language_;
    std::uint8_t value_ = 0;
    std::vector<std::uint8_t> sent_;
    Tally& tally_;
};

}  // namespace bench
