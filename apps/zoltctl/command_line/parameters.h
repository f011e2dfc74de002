// The parameters of commands: what the daemon would silently misread is refused
// here, before anything is sent.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace ctl {

/// The values of a command's parameters; those that it has are set.
struct Fields {
    std::string addresses;  ///< one digit each, in upper case
    std::optional<char> block;
    std::optional<char> end;  ///< 'A' or 'B'
    std::optional<char> channel;
    std::optional<bool> on;
    std::optional<std::uint8_t> value;
    std::optional<std::uint8_t> column;
    std::optional<std::uint8_t> row;
    std::string text;  ///< a percentage, hexadecimal pairs, a line

    char address() const { return addresses.at(0); }
};

struct Parameter {
    std::string_view name;
    const char* what;  ///< completes "is no ..."
    /// False when the word is none for the parameter.
    bool (*read)(const std::string& word, Fields& fields);
};

/// Null for a word that is no parameter's name.
const Parameter* parameterOf(std::string_view name);

}  // namespace ctl
