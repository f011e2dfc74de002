#pragma once

#include <cstdint>

/// The LCD start-up states that were sent last, one per command: a command whose
/// argument is neither "ON" nor "OFF" sends its last state again.
struct CarriedStates {
    std::uint8_t selfTest = 0;
    std::uint8_t initLight = 0;
};
