#pragma once

#include <span>

/// The console's fixed lines, without line ends.
namespace help_text {

/// The lines of "HELP".
std::span<const char* const> help();
/// The lines of "IOEXAMPLES".
std::span<const char* const> ioExamples();

}  // namespace help_text
