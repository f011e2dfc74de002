#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "bus/wire.h"
#include "tests/support/doubles/fake_serial_port.h"

namespace support {

/// A bus whose cards answer at once and that takes nothing from the heap while it
/// runs, so that what is measured is the host's side alone.
class QuickBus final : public SerialLine {
  public:
    /// The kind codes that a discovery finds, by address.
    std::array<char, wire::kAddresses> kinds{};
    /// What each card answers its poll with; as many bytes as the poll asks for.
    std::array<std::array<char, 6>, wire::kAddresses> inputs{};

    ssize_t read(char* buffer, std::size_t size) override;
    void written(std::string_view frame) override;

    /// Requests other than polls so far.
    std::size_t Requests() const { return requests_; }
    /// Polls so far.
    std::size_t Polls() const { return polls_; }

  private:
    void answer(std::string_view first, std::string_view rest);

    /// What the host has not read; empty: nothing.
    std::array<char, 64> pending_{};
    std::size_t pendingSize_ = 0;
    std::size_t requests_ = 0;
    std::size_t polls_ = 0;
};

}  // namespace support
