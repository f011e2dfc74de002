// The kinds that are polled.
#pragma once

#include <string>
#include <vector>

#include "apps/zolt-sim/cards/card.h"

namespace sim {

// Digital input and key matrix: bytes that the world outside sets. They are
// wires and switches, so a reboot of the card does not change them.
class InputCard : public Card {
  public:
    explicit InputCard(std::size_t byteCount) : data_(byteCount, 0) {}

    Bytes* inputs() override { return &data_; }
    std::string summary() const override { return hexBytes(data_); }

  private:
    Bytes data_;
};

// Analogue input: six bytes and a channel mask, which is kept and told but has
// no effect on the readings.
class AnalogueInputCard final : public InputCard {
  public:
    static constexpr std::size_t kChannels = 6;

    AnalogueInputCard() : InputCard(kChannels) {}

    std::vector<std::string> details() const override;

  protected:
    std::optional<ConfigResult> configureKind(const ConfigRequest& request) override;
    void reboot() override { mask_ = storedMask_; }

  private:
    static constexpr std::uint8_t kAllChannels = 0x3F;

    std::uint8_t mask_ = kAllChannels;
    std::uint8_t storedMask_ = kAllChannels;
};

}  // namespace sim
