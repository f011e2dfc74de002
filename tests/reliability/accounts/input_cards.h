#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "tests/reliability/accounts/bus_watch.h"

namespace reliability {

/// An input card of the simulated bus. REQUIRES: its inputs are changed only after the last
/// change has been reported, so that polling sees every change.
class InputCard {
  public:
    enum class Kind { kDigital, kKeyMatrix };

    InputCard(unsigned address, Kind kind) : address_(address), kind_(kind) {}

    unsigned address() const { return address_; }
    /// Changes every block of the card, the lowest first. Returns the reports that must
    /// follow, without line ends.
    std::vector<std::string> change(BusWatch& bus);

  private:
    unsigned address_;
    Kind kind_;
    unsigned value_ = 0;
};

/// The readings of an analogue card. The daemon reports averages of six polls, so the script
/// gives each reading to seven polls; two readings in a row differ in one channel. REQUIRES:
/// the script begins before the first poll of the card.
class AnalogueScript {
  public:
    AnalogueScript(BusWatch& bus, unsigned address, std::size_t readings);

    /// Gives further readings to the bus, well before their polls. Returns the reports that
    /// they will cause.
    std::vector<std::string> refill();

  private:
    void queueReading(const std::string& times);

    BusWatch& bus_;
    unsigned address_;
    std::size_t readings_;
    std::size_t queued_ = 0;
    std::vector<unsigned> channels_;
};

/// The report of a block: "a3b0d40".
std::string reportText(unsigned address, std::size_t block, unsigned value);

}  // namespace reliability
