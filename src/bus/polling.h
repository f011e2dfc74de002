#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "bus/perifcard.h"

/// What the data of a poll answer means for a card record. Pure: a record and
/// bytes in, a changed record and report lines out. Runs on the serial task's
/// thread.

/// Takes over the data bytes of a poll answer, as many as the record's kind has
/// (2 digital, 6 analogue, 1 key matrix), and sets the changed flags, which are
/// cleared first. Analogue answers are summed, and every seventh only triggers
/// the comparison of the averages. True when a value changed.
bool takePollData(PERIFCARD& card,
                  std::span<const std::uint8_t, PERIFCARD::kAnalogueChannels> data);

/// The text of a change report, "a3b0d40", without line end.
std::string inputReport(unsigned address, unsigned block, std::uint8_t value);

/// One report per changed block of the card at `address`, in ascending order.
std::vector<std::string> changeReports(const PERIFCARD& card, unsigned address);
