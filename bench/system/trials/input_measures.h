#pragma once

#include <functional>
#include <vector>

#include "bench/system/basics/random_times.h"
#include "bench/system/cards/slave.h"
#include "bench/system/contestants/daemon_session.h"
#include "bench/system/contestants/gateway.h"

namespace bench {

/// Lets the contestant work for a time; a gateway's client has to do the work.
using LetPass = std::function<void(Clock::duration)>;

/// Full scans a second of `cards` cards while `window` passes. Throws Failure when another
/// card is polled, or when the cards are not polled in turn.
double scansPerSecond(const Slave& slave, unsigned cards, Clock::duration window,
                      const LetPass& letPass);

/// Microseconds from each of `count` changes of an input to its line at the IO client. The
/// moments of the changes are independent of the polls. `values` are the inputs of the
/// cards and are kept up to date.
std::vector<double> changeLatencies(Slave& slave, support::TcpClient& io, unsigned cards,
                                    std::size_t count, double scanSeconds, RandomTimes& random,
                                    std::vector<std::uint8_t>& values);

/// Polls the cards through a gateway, which does not poll by itself.
class GatewayPolling {
  public:
    GatewayPolling(Slave& slave, support::TcpClient& client, unsigned cards)
        : slave_(slave), client_(client), values_(cards) {}

    void pollFor(Clock::duration time);
    /// The same as the free function.
    std::vector<double> changeLatencies(std::size_t count, double scanSeconds, RandomTimes& random);

  private:
    /// Polls the next card; returns the time of the answer and its first value.
    std::pair<Time, std::uint8_t> poll();
    Time awaitChange(unsigned card, std::uint8_t value);

    Slave& slave_;
    support::TcpClient& client_;
    std::vector<std::uint8_t> values_;
    unsigned next_ = 0;
};

}  // namespace bench
