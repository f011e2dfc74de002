// The kinds that take blocks of output bytes.
#pragma once

#include <string>
#include <vector>

#include "apps/zolt-sim/cards/card.h"

namespace sim {

// Digital output, and the base of the two below: a fixed number of bytes,
// always sent all together.
class OutputCard : public Card {
  public:
    // `preset`: the bytes after power-up and reboot.
    explicit OutputCard(Bytes preset) : preset_(preset), data_(std::move(preset)) {}

    std::optional<std::string> output(const Bytes& data) override;
    std::string summary() const override { return hexBytes(data_); }

  protected:
    void reboot() override { data_ = preset_; }

    const Bytes& data() const { return data_; }
    const Bytes& preset() const { return preset_; }
    void setPreset(const Bytes& preset) { preset_ = preset; }
    void moveTo(const Bytes& data) { data_ = data; }

  private:
    Bytes preset_;
    Bytes data_;
};

// Six servos. Stored positions are those taken after a reboot. The end positions
// have no storing command of their own, so the card keeps them at once.
class ServoCard final : public OutputCard {
  public:
    static constexpr std::size_t kChannels = 6;

    ServoCard() : OutputCard(Bytes(kChannels, 0x80)) {}

    std::vector<std::string> details() const override;

  protected:
    std::optional<ConfigResult> configureKind(const ConfigRequest& request) override;

  private:
    Bytes endA_ = Bytes(kChannels, 0x00);
    Bytes endB_ = Bytes(kChannels, 0xFF);
};

// Three DC motors: three values and a control byte, and a silent range per motor.
class MotorCard final : public OutputCard {
  public:
    static constexpr std::size_t kChannels = 3;

    MotorCard() : OutputCard(Bytes(kChannels + 1, 0x00)) {}

    std::vector<std::string> details() const override;

  protected:
    std::optional<ConfigResult> configureKind(const ConfigRequest& request) override;
    void reboot() override;

  private:
    Bytes ranges_ = Bytes(kChannels, 0x00);
    Bytes storedRanges_ = Bytes(kChannels, 0x00);
};

}  // namespace sim
