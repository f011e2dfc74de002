#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "bus/wire.h"
#include "tests/support/doubles/fake_serial_port.h"

namespace support {

/// A bus whose cards answer without delay and without taking anything from the heap, so that
/// measurements show the host alone.
class QuickBus final : public SerialLine {
  public:
    /// The kind codes that a discovery finds, by address.
    std::array<char, wire::kAddresses> kinds{};
    /// The bytes with which each card answers a poll; the poll asks for their number.
    std::array<std::array<char, 6>, wire::kAddresses> inputs{};

    ssize_t read(char* buffer, std::size_t size) override;
    void written(std::string_view frame) override;

    /// Requests other than polls so far.
    std::size_t requests() const { return requests_; }
    /// Polls so far.
    std::size_t polls() const { return polls_; }

  private:
    void answer(std::string_view first, std::string_view rest);

    /// The bytes that the host has not read yet.
    std::array<char, 64> pending_{};
    std::size_t pendingSize_ = 0;
    std::size_t requests_ = 0;
    std::size_t polls_ = 0;
};

}  // namespace support
