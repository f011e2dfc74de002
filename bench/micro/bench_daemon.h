#pragma once

#include <array>

#include "bus/wire.h"
#include "tests/support/hand_run/hand_run_daemon.h"

/// A bus of sixteen digital inputs, which costs most.
std::array<char, wire::kAddresses> sixteenInputs();

/// A card of every kind that takes outputs, at the addresses of the help text.
std::array<char, wire::kAddresses> outputCards();
