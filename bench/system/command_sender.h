#pragma once

#include <functional>
#include <string>
#include <vector>

#include "bench/system/random_times.h"
#include "bench/system/slave.h"
#include "bench/system/tally.h"
#include "tests/support/tcp/tcp_client.h"

namespace bench {

/// The output card that gets the commands.
inline constexpr std::uint8_t kOutputCard = 5;

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
