#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace zolt_sim {

using Words = std::vector<std::string>;

/// The words of a text, which are separated by blanks, tabs and carriage returns.
Words splitWords(std::string_view text);

}  // namespace zolt_sim
