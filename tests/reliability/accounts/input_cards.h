#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "tests/reliability/accounts/bus_watch.h"

namespace reliability {

/// An input card of the simulated bus whose inputs are changed only when the
/// last change has been reported, so that polling sees each of them.
class InputCard {
  public:
    enum class Kind { kDigital, kKeyMatrix };

    InputCard(unsigned address, Kind kind) : address_(address), kind_(kind) {}

    unsigned address() const { return address_; }
    /// Changes every block of the card, the lowest first, and returns the reports
    /// that have to come, without line ends.
    std::vector<std::string> change(BusWatch& bus);

  private:
    unsigned address_;
    Kind kind_;
    unsigned value_ = 0;
};

/// An analogue card reports averages of six polls, so its readings are scripted
/// poll by poll: seven times each, one channel changed from one to the next. The
/// script has to begin ahead of the card's first poll.
class AnalogueScript {
  public:
    AnalogueScript(BusWatch& bus, unsigned address, std::size_t readings);

    /// Hands the bus further readings, well ahead of the polls, and returns the
    /// reports that will come of them.
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
