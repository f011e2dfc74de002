#pragma once

#include <chrono>
#include <functional>

namespace support {

using Clock = std::chrono::steady_clock;

/// The time that a test waits for something that a correct program is sure to do, even on a
/// slow machine.
inline constexpr std::chrono::seconds kPatience{30};

/// Calls `predicate` every few milliseconds until it returns true or `patience` has passed.
/// Returns its last result.
bool waitUntil(const std::function<bool()>& predicate,
               std::chrono::milliseconds patience = kPatience);

}  // namespace support
