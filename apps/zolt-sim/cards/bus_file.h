// The bus file: which card sits at which address.
#pragma once

#include <array>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "apps/zolt-sim/cards/wire.h"

namespace sim {

// What stands at one address.
struct SlotSetup {
    enum class Content {
        kEmpty,   // no card; answered as `BusLayout::missingSilent` says
        kSilent,  // no card, never an answer
        kCard
    };
    Content content = Content::kEmpty;
    std::uint8_t code = wire::kCodeEmpty;  // kind code on the wire when content is kCard
};

struct BusLayout {
    std::array<SlotSetup, wire::kAddressCount> slots;
    bool missingSilent = false;  // requests to an empty address: silence instead of "N"
};

// what() is a complete message: "FILE:LINE: REASON", or "FILE: REASON".
class BusFileError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

// The words after an address: a kind's name, "code NN" or "silent".
// Throws std::invalid_argument with the reason.
SlotSetup parseSlot(const std::vector<std::string>& words);

// `fileName` is only used in messages. Throws BusFileError.
BusLayout parseBusText(std::string_view text, const std::string& fileName);

// Throws BusFileError.
BusLayout readBusFile(const std::string& path);

// The whole of a small text file; throws std::runtime_error with "PATH: REASON".
std::string readTextFile(const std::string& path);

}  // namespace sim
