#pragma once

#include <string>
#include <vector>

#include "tests/golden/item.h"
#include "tests/golden/setup.h"

namespace golden {

/// The clients of the action "boot", whose argument is a list of their names separated by
/// blanks.
std::vector<std::string> bootClients(const std::string& argument);

/// What an undisturbed start brings about when the simulated bus is there: the log of the
/// start, the check of the bus controller, the request for the list of cards when the
/// daemon discovers by itself, and the greeting of each client. The list of cards is not
/// among these items, because every bus has its own.
///
/// Throws std::invalid_argument for a setup without a simulated bus or with a
/// configuration file of its own, for a percentage without a known delay, and for an
/// unknown client.
std::vector<Item> bootItems(const Setup& setup, const std::vector<std::string>& clients);

/// Takes away from each channel of `recorded` what `implied` says about that channel.
/// Throws std::runtime_error when `recorded` lacks one of the implied items.
std::vector<Item> withoutImplied(std::vector<Item> recorded, const std::vector<Item>& implied);

}  // namespace golden
