#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "apps/zolt-sim/bytes.h"

namespace zolt_sim {

/// The part of a configuration request that follows the card's address.
struct ConfigRequest {
    std::uint8_t operation = 0;
    std::uint8_t registerNumber = 0;
    std::optional<std::uint8_t> value;
};

/// What a card did with a configuration request.
struct ConfigResult {
    /// The last byte of the answer.
    std::uint8_t value = 0;
    /// A readable text; empty if the request only reads.
    std::string change;
};

/// One card on the bus: what it answers and what it remembers. Cards have no lock;
/// the owner calls them from one thread at a time.
class Card {
  public:
    Card() = default;
    Card(const Card&) = delete;
    Card& operator=(const Card&) = delete;
    virtual ~Card() = default;

    /// The input bytes of a card that is polled, owned by the card; nullptr for other cards.
    virtual Bytes* inputs() { return nullptr; }

    /// Carries out an output request and returns the change as a readable text.
    /// Returns nothing if cards of this kind do not understand the data.
    virtual std::optional<std::string> output(const Bytes& data);

    /// Carries out a configuration request. Returns nothing if the kind does not have
    /// the register, or if a value is missing or not expected. Every kind can be rebooted.
    std::optional<ConfigResult> configure(const ConfigRequest& request);

    /// The state in one line.
    virtual std::string summary() const = 0;

    /// The rest of the state, one line per subject.
    virtual std::vector<std::string> details() const { return {}; }

  protected:
    virtual std::optional<ConfigResult> configureKind(const ConfigRequest& request);

    /// Restores what the card keeps without power.
    virtual void reboot() {}
};

/// A card whose kind code no host knows. It takes part in discovery and can be rebooted.
class UnknownCard final : public Card {
  public:
    std::string summary() const override { return "no state"; }
};

}  // namespace zolt_sim
