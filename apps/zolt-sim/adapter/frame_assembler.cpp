#include "apps/zolt-sim/adapter/frame_assembler.h"

#include <utility>

namespace zolt_sim {

void FrameAssembler::feed(std::span<const std::uint8_t> bytes) {
    pending_.insert(pending_.end(), bytes.begin(), bytes.end());
}

std::optional<Bytes> FrameAssembler::next() {
    if (pending_.empty() || pending_.size() <= pending_.front()) {
        return std::nullopt;
    }
    const auto end = pending_.begin() + 1 + pending_.front();
    Bytes payload(pending_.begin() + 1, end);
    pending_.erase(pending_.begin(), end);
    return payload;
}

Bytes FrameAssembler::drop() {
    return std::exchange(pending_, {});
}

}  // namespace zolt_sim
