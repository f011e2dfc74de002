#pragma once

#include <chrono>
#include <string>

#include "tests/golden/dialogue.h"

namespace golden {

/// Takes over one line from before the first action ("polling on"); throws
/// std::invalid_argument.
void applySetting(Setup& setup, const std::string& keyword, const std::string& argument);

/// Decimal seconds; throws std::invalid_argument.
std::chrono::milliseconds readSeconds(const std::string& text);

}  // namespace golden
