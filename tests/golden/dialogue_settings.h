#pragma once

#include <chrono>
#include <string>

#include "tests/golden/setup.h"

namespace golden {

/// Applies one line that precedes the first action, for example "polling on". Throws
/// std::invalid_argument.
void applySetting(Setup& setup, const std::string& keyword, const std::string& argument);

/// Reads decimal seconds, for example "0.5". Throws std::invalid_argument.
std::chrono::milliseconds readSeconds(const std::string& text);

}  // namespace golden
