#pragma once

#include <chrono>

#include "bench/system/cards/slave.h"

namespace bench {

/// Percent. A daemon whose configuration names no speed has the default one.
inline constexpr int kFullSpeed = 100;
inline constexpr int kDefaultSpeed = 1;

/// The time in which a new speed reaches every loop.
inline constexpr std::chrono::milliseconds kSpeedSettles{50};

/// In seconds: the longest measured cycle of the bus, which has fifteen polls and a command,
/// and the cycle of a quiet bus, which has a command.
inline constexpr double kFullCycle = 0.0033;
inline constexpr double kQuietCycle = 0.0005;

/// Waits for the first poll; throws Failure when none comes.
void awaitPolls(const Slave& slave);
/// Waits for polling to have ended; throws Failure when it goes on.
void awaitQuiet(const Slave& slave);

}  // namespace bench
