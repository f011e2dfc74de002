#pragma once

#include <string>
#include <vector>

namespace zolt_check {

/// ` (did you mean "Speed"?)` with the known name that is most similar to `name`: equal
/// except for case, or different in a few characters. Empty if no name is similar.
std::string didYouMean(const std::string& name, const std::vector<std::string>& known);

}  // namespace zolt_check
