#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "apps/zolt-sim/cards/wire.h"
#include "apps/zolt-sim/words.h"

namespace zolt_sim {

/// What is at one address.
struct SlotSetup {
    enum class Content {
        kEmpty,   ///< no card; BusLayout::missingSilent decides how it is answered
        kSilent,  ///< no card and never an answer
        kCard
    };
    Content content = Content::kEmpty;
    /// The kind code on the wire if there is a card.
    std::uint8_t code = wire::kNoCard;
};

struct BusLayout {
    std::array<SlotSetup, wire::kAddressCount> slots;
    /// Whether requests to an empty address get no answer instead of the negative one.
    bool missingSilent = false;
};

/// Reads the words after an address: the name of a kind, "code NN" or "silent".
/// Throws Error with the reason.
SlotSetup parseSlot(const Words& words);

/// Reads the text of a bus file. `fileName` appears only in messages. Throws Error with
/// "FILE:LINE: REASON".
BusLayout parseBusText(std::string_view text, const std::string& fileName);

/// Throws Error with "FILE:LINE: REASON", or "FILE: REASON" if there is no such file.
BusLayout readBusFile(const std::string& path);

}  // namespace zolt_sim
