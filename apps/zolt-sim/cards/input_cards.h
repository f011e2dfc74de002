#pragma once

#include <string>
#include <utility>
#include <vector>

#include "apps/zolt-sim/cards/card.h"
#include "lib/text/hexadecimal.h"

namespace zolt_sim {

/// A card that is polled: digital input, key matrix, and the base of the analogue
/// input. Its bytes are the state of wires and switches outside, so a reboot of the
/// card does not change them.
class InputCard : public Card {
  public:
    explicit InputCard(Bytes data) : data_(std::move(data)) {}

    Bytes* inputs() override { return &data_; }
    std::string summary() const override { return zolt_text::hexBytes(data_); }

  private:
    Bytes data_;
};

/// An analogue input card: one byte per channel and a mask of the channels. The card
/// keeps the mask and gives it back, but the mask does not change the readings.
class AnalogueInputCard final : public InputCard {
  public:
    using InputCard::InputCard;

    std::vector<std::string> details() const override;

  protected:
    std::optional<ConfigResult> configureKind(const ConfigRequest& request) override;
    void reboot() override { mask_ = storedMask_; }

  private:
    static constexpr std::uint8_t kAllChannels = 0x3F;

    std::uint8_t mask_ = kAllChannels;
    std::uint8_t storedMask_ = kAllChannels;
};

}  // namespace zolt_sim
