#pragma once

#include <string>

namespace bench {

/// The number with `digits` digits after the point.
std::string numberText(double value, int digits);

}  // namespace bench
