#pragma once

#include <chrono>
#include <functional>

namespace support {

using Clock = std::chrono::steady_clock;

/// How long a test waits for something that is sure to come on a sound
/// program, however slow the machine.
inline constexpr std::chrono::seconds kPatience{30};

/// Tries `predicate` every few milliseconds until it holds or `patience` has
/// passed; the result is its last value.
bool waitUntil(const std::function<bool()>& predicate,
               std::chrono::milliseconds patience = kPatience);

}  // namespace support
