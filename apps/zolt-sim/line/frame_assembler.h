// Cuts the bytes that arrive from the host into request frames.
#pragma once

#include <cstdint>
#include <optional>
#include <span>

#include "apps/zolt-sim/text.h"

namespace sim {

// A frame is a length byte and that many payload bytes, however many reads it takes.
class FrameAssembler {
  public:
    void feed(std::span<const std::uint8_t> bytes);

    // The payload of the next complete frame (it may be empty), or nothing.
    std::optional<Bytes> next();

    // Whether part of a frame waits for its rest, once next() has returned nothing.
    bool incomplete() const { return !pending_.empty(); }

    // Forgets the part and returns it.
    Bytes drop();

  private:
    Bytes pending_;
};

}  // namespace sim
