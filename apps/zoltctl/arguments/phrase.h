#pragma once

#include <string>
#include <vector>

#include "apps/zoltctl/arguments/parameters.h"

/// Commands in words: "servo ADDRESS end END channel SERVO VALUE". Words in capitals are
/// parameters, all others stand for themselves. A last parameter in brackets, "[BLOCK]",
/// may be missing; with dots, "[ADDRESS...]", it may also be repeated.
namespace zoltctl {

struct Phrase {
    std::size_t index;  ///< the position of the pattern
    Fields fields;
};

/// Finds the pattern that the words follow. Throws Failure of status kUsage, which says
/// what is expected at the word that no pattern allows.
Phrase matchPhrase(const std::vector<std::string>& words, const std::vector<std::string>& patterns);

/// The parameters of a pattern, without brackets and dots.
std::vector<std::string> parameterNames(const std::string& pattern);

}  // namespace zoltctl
