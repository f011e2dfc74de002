#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace bench {

/// The number of links that a daemon has lost after it had found them, by the daemon's log.
std::size_t linkLosses(const std::string& log);

using PollCounts = std::array<std::size_t, 16>;

/// Whether the first `cards` cards, and no other, were polled in turn. The counted time may
/// begin and end in the middle of a turn.
bool inStep(const PollCounts& counts, unsigned cards);

/// The number of sent commands that did not arrive. Commands are recognised by their values;
/// another value that arrives does not replace a missing one.
std::size_t missing(const std::vector<std::uint8_t>& sent,
                    const std::vector<std::uint8_t>& arrived);

}  // namespace bench
