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

/// Sends commands to the output card and checks that each arrives there.
class CommandSender {
  public:
    /// How a contestant's client writes a command that sets block 0, and what the client
    /// receives as the answer.
    struct Language {
        std::function<std::string(std::uint8_t value)> command;
        std::string heard;
    };

    /// Adds each command to `tally` when it is sent, and the lost ones at the end at the latest.
    CommandSender(Slave& slave, support::TcpClient& client, Language language, Tally& tally);
    ~CommandSender();
    CommandSender(const CommandSender&) = delete;
    CommandSender& operator=(const CommandSender&) = delete;

    struct Latencies {
        std::vector<double> toCard;
        std::vector<double> toPort;
        /// From the answer at the port to the client; empty when the client gets no answers.
        std::vector<double> answer;
    };
    /// The latencies of `count` single commands in microseconds, out of step with the cycle.
    Latencies latencies(std::size_t count, double cycleSeconds, RandomTimes& random);

    /// Microseconds from the sending of a single command to its last byte at the card, for
    /// `count` commands or as many as `time` allows. A command that does not arrive ends the
    /// series and has no value, so a lost link does not end the measurement.
    std::vector<double> latenciesWithin(Clock::duration time, std::size_t count,
                                        double cycleSeconds, RandomTimes& random);

    /// Each returns its duration in seconds. One at a time means that the next command is sent
    /// when the card has answered, or when the client has received the answer.
    double oneAtATime(std::size_t count);
    double oneHeardAtATime(std::size_t count);
    /// The next packet is sent when the daemon has read the last one, so that the card's queue
    /// is never empty.
    double flood(std::size_t count);

  private:
    /// The next command, which has another value than its neighbours.
    std::string next();
    /// Starts a new count.
    void begin();
    /// Adds the commands that were sent since begin() and are not at the card.
    void addLost();
    /// Throws Failure unless command `number` reaches the card unchanged and in its turn.
    Slave::Output arrived(std::size_t number);
    /// Throws Failure unless exactly `count` commands have reached the card.
    void allArrived(std::size_t count);
    /// Waits until the client has received `count` answers, if it gets any.
    void hear(std::size_t count);

    Slave& slave_;
    support::TcpClient& client_;
    Language language_;
    std::uint8_t value_ = 0;
    std::vector<std::uint8_t> sent_;
    Tally& tally_;
};

}  // namespace bench
