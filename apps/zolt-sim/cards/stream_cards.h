#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "apps/zolt-sim/cards/card.h"

namespace zolt_sim {

/// A text display of 4 rows and 20 columns, both counted from 0. Text beyond the end
/// of its row is not seen. The card keeps the two start-up options at once.
class LcdCard final : public Card {
  public:
    static constexpr std::size_t kRows = 4;
    static constexpr std::size_t kColumns = 20;

    LcdCard();

    std::optional<std::string> output(const Bytes& data) override;
    std::string summary() const override;
    std::vector<std::string> details() const override;

  protected:
    std::optional<ConfigResult> configureKind(const ConfigRequest& request) override;
    void reboot() override;

  private:
    void clear();
    std::optional<std::string> writeText(const Bytes& data);

    std::array<Bytes, kRows> rows_;
    bool light_ = false;
    bool cursor_ = false;
    bool blink_ = false;
    std::uint8_t selfTest_ = 0x00;
    std::uint8_t initLight_ = 0x00;
};

/// An infra-red sender, which remembers the last stream.
class IrCard final : public Card {
  public:
    std::optional<std::string> output(const Bytes& data) override;
    std::string summary() const override;

  protected:
    void reboot() override { stream_.clear(); }

  private:
    Bytes stream_;
};

}  // namespace zolt_sim
