#pragma once

#include <string>

namespace bench {

/// A number with so many digits behind the point.
std::string numberText(double value, int digits);

}  // namespace bench
