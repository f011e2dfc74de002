#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "apps/zolt-sim/cards/bus_file.h"
#include "apps/zolt-sim/cards/card.h"
#include "apps/zolt-sim/cards/card_kinds.h"
#include "apps/zolt-sim/cards/wire.h"

namespace zolt_sim {

/// The bus controller and its cards: the payload of a request in, the payload of the
/// answer out. The model has no wire, no clock and no lock; the owner calls it from one
/// thread at a time.
class BusModel {
  public:
    struct Reply {
        /// Nothing if the bus stays silent.
        std::optional<Bytes> answer;
        /// A readable line about the card, or empty.
        std::string change;
    };

    explicit BusModel(const BusLayout& layout);

    Reply answer(const Bytes& request);

    /// What the world outside does to a card. Each function returns the change as a
    /// readable line. It throws Error if the card at the address cannot have that.
    /// REQUIRES: `address` is at most 0F.
    std::string setInput(std::uint8_t address, std::size_t block, std::uint8_t value);
    std::string press(std::uint8_t address, unsigned input, bool down);
    std::string turn(std::uint8_t address, std::size_t channel, std::uint8_t value);
    std::string key(std::uint8_t address, std::uint8_t value);
    std::string insert(std::uint8_t address, const SlotSetup& setup);
    std::string remove(std::uint8_t address);

    /// One line per address.
    std::vector<std::string> showAll() const;
    /// Everything about one address. REQUIRES: `address` is at most 0F.
    std::vector<std::string> show(std::uint8_t address) const;

  private:
    struct Slot {
        SlotSetup setup;
        /// Set if setup.content is kCard, and only then.
        std::unique_ptr<Card> card;
    };

    Reply answerPoll(const Bytes& request);
    Reply answerOutput(const Bytes& request);
    Reply answerConfig(const Bytes& request);
    Bytes answerDiscovery() const;
    /// The answer if no card understands a request that names `address`.
    Reply refuse(std::uint8_t address) const;
    Card* cardAt(std::uint8_t address) const;
    std::string label(std::uint8_t address) const;
    /// The input bytes of the card at `address`, which must have such inputs; without
    /// `device` any inputs. Throws Error if the card has none of them.
    Bytes& inputsOf(std::uint8_t address, std::optional<InputDevice> device);
    std::string changeInput(std::uint8_t address, Bytes& inputs, std::size_t block,
                            std::uint8_t value);

    std::array<Slot, wire::kAddressCount> slots_;
    bool missingSilent_;
};

}  // namespace zolt_sim
