// One card on the bus: what it answers, what it remembers.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "apps/zolt-sim/text.h"

namespace sim {

// The part of a configuration request that follows the card's address.
struct ConfigRequest {
    std::uint8_t operation = 0;
    std::uint8_t registerNumber = 0;
    std::optional<std::uint8_t> value;
};

// What a card did with a configuration request.
struct ConfigResult {
    std::uint8_t value = 0;  // the last byte of the answer
    std::string change;      // readable; empty when the request only reads
};

// Base of all kinds. Not thread-safe: the owner locks.
class Card {
  public:
    Card() = default;
    Card(const Card&) = delete;
    Card& operator=(const Card&) = delete;
    virtual ~Card() = default;

    // The input bytes of a kind that is polled; nullptr for the others.
    virtual Bytes* inputs() { return nullptr; }

    // Carries out an output request; returns the readable change, or nothing
    // when this kind does not understand the data.
    virtual std::optional<std::string> output(const Bytes& data);

    // Carries out a configuration request; nothing when the kind does not know
    // the register, or the value is missing or too much. Every kind can be rebooted.
    std::optional<ConfigResult> configure(const ConfigRequest& request);

    // The state in one line.
    virtual std::string summary() const = 0;

    // The rest of the state, one line per subject.
    virtual std::vector<std::string> details() const { return {}; }

  protected:
    virtual std::optional<ConfigResult> configureKind(const ConfigRequest& request);

    // Falls back to what the card keeps without power.
    virtual void reboot() {}
};

// A card of a code that no host knows: it takes part in discovery and can be rebooted.
class UnknownCard final : public Card {
  public:
    std::string summary() const override { return "no state"; }
};

}  // namespace sim
