#pragma once

#include <span>
#include <string>
#include <vector>

namespace zoltctl {

/// The first words of all commands of the console, in alphabetical order. A word whose
/// parameter follows at once ends with the character before the parameter: "POLLON:".
std::span<const char* const> consoleWords();

/// The words that begin with `start`, in the same order.
std::vector<std::string> completionsOf(const std::string& start);

/// The longest beginning that all words share.
std::string commonStart(const std::vector<std::string>& words);

}  // namespace zoltctl
