// The bus controller and its cards: request payload in, answer payload out.
// No line, no clock; not thread-safe: the owner locks.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "apps/zolt-sim/cards/bus_file.h"
#include "apps/zolt-sim/cards/card.h"
#include "apps/zolt-sim/cards/wire.h"

namespace sim {

// A control that cannot be carried out; what() is the reason.
class ControlError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

class BusModel {
  public:
    struct Reply {
        std::optional<Bytes> answer;  // nothing: the bus stays silent
        std::string change;           // readable line about the card, or empty
    };

    explicit BusModel(const BusLayout& layout);

    Reply answer(const Bytes& request);

    // What the world outside does to a card. Each returns the readable change
    // line and throws ControlError when the card at the address cannot have that.
    std::string setInput(std::uint8_t address, std::size_t block, std::uint8_t value);
    std::string press(std::uint8_t address, unsigned input, bool down);
    std::string turn(std::uint8_t address, std::size_t channel, std::uint8_t value);
    std::string key(std::uint8_t address, std::uint8_t value);
    std::string insert(std::uint8_t address, const SlotSetup& setup);
    std::string remove(std::uint8_t address);

    // One line per address, and everything known about one address.
    std::vector<std::string> showAll() const;
    std::vector<std::string> show(std::uint8_t address) const;

  private:
    struct Slot {
        SlotSetup setup;
        std::unique_ptr<Card> card;  // set exactly when setup.content is kCard
    };

    Reply answerPoll(const Bytes& request);
    Reply answerOutput(const Bytes& request);
    Reply answerConfig(const Bytes& request);
    Bytes answerDiscovery() const;
    // The answer when no card understands a request that names `address`.
    Reply refuse(std::uint8_t address) const;
    Card* cardAt(std::uint8_t address) const;
    std::string label(std::uint8_t address) const;
    Bytes& inputsOf(std::uint8_t address, std::optional<std::uint8_t> code);
    std::string changeInput(std::uint8_t address, Bytes& inputs, std::size_t block,
                            std::uint8_t value);

    std::array<Slot, wire::kAddressCount> slots_;
    bool missingSilent_;
};

}  // namespace sim
