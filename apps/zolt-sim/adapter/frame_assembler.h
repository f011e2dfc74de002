#pragma once

#include <cstdint>
#include <optional>
#include <span>

#include "apps/zolt-sim/bytes.h"

namespace zolt_sim {

/// Cuts the bytes that arrive from the host into request frames. A frame is a length
/// byte and that many payload bytes, however many reads they take.
class FrameAssembler {
  public:
    void feed(std::span<const std::uint8_t> bytes);

    /// The payload of the next complete frame, which may be empty; nothing if no frame is
    /// complete.
    std::optional<Bytes> next();

    /// Whether part of a frame waits for its rest. REQUIRES: next() has returned nothing.
    bool incomplete() const { return !pending_.empty(); }

    /// Removes the incomplete frame and returns its bytes.
    Bytes drop();

  private:
    Bytes pending_;
};

}  // namespace zolt_sim
