#pragma once

#include <cstdint>
#include <span>

#include "bus/perifcard.h"

/// What the data of a poll answer may mean for a card's record; the table of card
/// kinds names one of these functions for each input card. They run on the serial
/// task's thread.

/// The data bytes of a poll answer that count for the card's kind.
using PollData = std::span<const std::uint8_t>;

/// Each byte is the state of a block. Stores the ones that differ from the
/// record's values and sets their changed flags; true when any differs.
/// REQUIRES: at most PERIFCARD::kBlocks bytes.
bool takeBlocks(PERIFCARD& card, PollData data);

/// Each byte is a sample of a channel. Adds the samples to the record's sums until
/// it has as many as are averaged; the next answer's samples are not counted, but
/// let the averages be taken as blocks are. True when one of them differs.
/// REQUIRES: at most PERIFCARD::kAnalogueChannels bytes.
bool takeAverages(PERIFCARD& card, PollData data);
