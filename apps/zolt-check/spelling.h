#pragma once

#include <string>
#include <vector>

namespace check {

/// ` (did you mean "Speed"?)` with the known name that `name` is most like: the
/// same in another case, or a few characters away. Empty when none is near.
std::string didYouMean(const std::string& name, const std::vector<std::string>& known);

}  // namespace check
