// Commands in words: "servo ADDRESS end END channel SERVO VALUE". Words in capitals
// are parameters, the others stand for themselves. A last parameter in brackets,
// "[BLOCK]", may be missing; with dots, "[ADDRESS...]", it may also be repeated.
#pragma once

#include <string>
#include <vector>

#include "apps/zoltctl/command_line/parameters.h"

namespace ctl {

struct Phrase {
    std::size_t index;  ///< which of the patterns it is
    Fields fields;
};

/// Which of the patterns the words follow. Throws Failure of status kUsage, which
/// says what is expected where the words leave every pattern.
Phrase matchPhrase(const std::vector<std::string>& words, const std::vector<std::string>& patterns);

/// The parameters of a pattern, without brackets and dots.
std::vector<std::string> parameterNames(const std::string& pattern);

}  // namespace ctl
