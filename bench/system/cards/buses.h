#pragma once

#include <string>

#include "apps/zolt-sim/cards/wire.h"
#include "lib/text/hexadecimal.h"

namespace bench {

/// The number of cards on a full bus.
inline constexpr unsigned kAllCards = 16;
/// The output card that gets the commands.
inline constexpr std::uint8_t kOutputCard = 5;

/// A digital input card at every address.
inline std::string sixteenInputs() {
    std::string text;
    for (std::uint8_t card = 0; card < zolt_sim::wire::kAddressCount; ++card) {
        text += zolt_text::hexDigit(card) + " digital-input\n";
    }
    return text;
}

/// The same with a digital output card in place of one of them.
inline std::string fifteenInputs() {
    std::string text;
    for (std::uint8_t card = 0; card < zolt_sim::wire::kAddressCount; ++card) {
        text += zolt_text::hexDigit(card) +
                (card == kOutputCard ? " digital-output\n" : " digital-input\n");
    }
    return text;
}

}  // namespace bench
