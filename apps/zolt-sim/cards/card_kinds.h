// The kinds of cards: their names in bus files and controls, their codes on the wire.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "apps/zolt-sim/cards/card.h"

namespace sim {

// Code of the kind with this name; nothing for an unknown name.
std::optional<std::uint8_t> kindCode(std::string_view name);

// Name of the kind with this code; "code NN" for a code without a name.
std::string kindName(std::uint8_t code);

bool isNamedKind(std::uint8_t code);

// All names, one blank between two.
std::string kindNames();

// A card as it comes out of its box; an unknown code makes an UnknownCard.
std::unique_ptr<Card> makeCard(std::uint8_t code);

}  // namespace sim
