#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "lib/ports/card_config.h"

namespace zoltctl {

/// The values of a command's parameters; those that the command has are set.
struct Fields {
    /// What a card configuration command takes. The address is the first of `addresses`.
    zolt_ports::CardFields card;
    std::string addresses;  ///< one upper-case hexadecimal digit each
    std::optional<unsigned> block;
    std::optional<std::uint8_t> column;
    std::optional<std::uint8_t> row;
    std::string text;  ///< a percentage, hexadecimal pairs, a text or a line

    char address() const { return card.address; }
};

/// A parameter of a command. What the daemon would silently misread is refused here,
/// before anything is sent.
struct Parameter {
    std::string_view name;
    std::string noun;  ///< completes "is not ..."
    std::string form;  ///< what a word has to look like
    /// False if the word is not one for the parameter.
    bool (*read)(const std::string& word, Fields& fields);
};

/// Null if the word is not the name of a parameter.
const Parameter* parameterOf(std::string_view name);

}  // namespace zoltctl
