#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "apps/zolt-sim/cards/card.h"
#include "lib/text/hexadecimal.h"

namespace zolt_sim {

/// A card that takes a fixed number of output bytes, always all of them in one
/// request: digital output, and the base of the two classes below.
class OutputCard : public Card {
  public:
    /// `preset`: the bytes after power-up and after a reboot.
    explicit OutputCard(const Bytes& preset) : preset_(preset), data_(preset) {}

    std::optional<std::string> output(const Bytes& data) override;
    std::string summary() const override { return zolt_text::hexBytes(data_); }

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

/// A card with one servo per data byte. A reboot moves the servos to the stored
/// positions. The end positions have no command that stores them, so the card keeps
/// them at once.
class ServoCard final : public OutputCard {
  public:
    explicit ServoCard(const Bytes& preset)
        : OutputCard(preset), endA_(preset.size(), 0x00), endB_(preset.size(), 0xFF) {}

    std::vector<std::string> details() const override;

  protected:
    std::optional<ConfigResult> configureKind(const ConfigRequest& request) override;

  private:
    Bytes endA_;
    Bytes endB_;
};

/// A card with one data byte per DC motor and a control byte after them. Every motor
/// has a silent range.
class MotorCard final : public OutputCard {
  public:
    /// REQUIRES: `preset` is not empty.
    explicit MotorCard(const Bytes& preset)
        : OutputCard(preset), ranges_(preset.size() - 1, 0x00), storedRanges_(ranges_) {}

    std::vector<std::string> details() const override;

  protected:
    std::optional<ConfigResult> configureKind(const ConfigRequest& request) override;
    void reboot() override;

  private:
    Bytes ranges_;
    Bytes storedRanges_;
};

}  // namespace zolt_sim
