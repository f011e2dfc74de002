#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "bus/perifcard.h"

/// These functions turn a poll answer into a changed record and report lines. They depend
/// on their arguments alone and run on the serial task's thread.

/// Clears the record's changed flags, then takes over the data bytes of a poll
/// answer as the record's kind says: each kind looks at its own number of bytes
/// (2 digital, 6 analogue, 1 key matrix) and a card without inputs at none. True
/// when a value changed.
bool takePollData(PERIFCARD& card,
                  std::span<const std::uint8_t, PERIFCARD::kAnalogueChannels> data);

/// The text of a change report, "a3b0d40", without line end.
std::string inputReport(unsigned address, unsigned block, std::uint8_t value);

/// One report per changed block of the card at `address`, in ascending order.
std::vector<std::string> changeReports(const PERIFCARD& card, unsigned address);
