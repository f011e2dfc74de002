#pragma once

#include <array>

/// The console's fixed lines, without line ends.
namespace help_text {

extern const std::array<const char*, 69> kHelp;
extern const std::array<const char*, 22> kIoExamples;

}  // namespace help_text
