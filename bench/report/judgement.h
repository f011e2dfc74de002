#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace bench {

/// How often a daemon has lost its link since it found it, by its log.
std::size_t linkLosses(const std::string& log);

using PollCounts = std::array<std::size_t, 16>;

/// Whether the first `cards` cards were polled in turn, and no other; the counts
/// are those of a time that may begin and end in the middle of a turn.
bool inStep(const PollCounts& counts, unsigned cards);

/// How many of the sent commands, told apart by their values, did not arrive.
/// Nothing that arrives besides makes up for one.
std::size_t missing(const std::vector<std::uint8_t>& sent,
                    const std::vector<std::uint8_t>& arrived);

}  // namespace bench
