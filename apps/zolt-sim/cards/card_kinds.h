#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "apps/zolt-sim/cards/card.h"

namespace zolt_sim {

/// What is wired to the inputs of a card. It decides which control, besides "set",
/// changes them.
enum class InputDevice {
    kNone,            ///< the card has no inputs and is not polled
    kSwitches,        ///< one bit each; "press" and "release"
    kPotentiometers,  ///< one byte each; "turn"
    kKeys,            ///< the code of a key; "key"
};

/// Everything that differs by the kind of a card. No other file of the simulator
/// compares a kind.
struct CardKind {
    /// The byte for the card in a discovery answer.
    std::uint8_t code;
    /// The name in bus files, controls and traces.
    std::string_view name;
    /// How many bytes a poll reads or an output request carries; 0 for a card that
    /// takes streams of changing length.
    std::size_t dataBytes;
    /// The value of each data byte when the card has just been powered up.
    std::uint8_t preset;
    InputDevice inputs;
    std::unique_ptr<Card> (*make)(const CardKind& kind);
};

/// All kinds, in the order of their codes.
std::span<const CardKind> cardKinds();

/// The kind with this code or name, or nullptr.
const CardKind* findKind(std::uint8_t code);
const CardKind* findKind(std::string_view name);

/// The name of the kind with this code; "code NN" if the code has no name.
std::string kindName(std::uint8_t code);

/// All names, with `separator` between two.
std::string kindNames(std::string_view separator);

/// The names of the kinds with these inputs, with " or " between two.
std::string kindNamesWith(InputDevice inputs);

/// A card as it is after power-up. A code without a kind makes an UnknownCard.
std::unique_ptr<Card> makeCard(std::uint8_t code);

}  // namespace zolt_sim
