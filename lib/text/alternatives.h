#pragma once

#include <string>
#include <vector>

namespace zolt_text {

/// "a", "a or b", "a, b or c": the texts as a choice in a sentence.
std::string alternatives(const std::vector<std::string>& texts);

}  // namespace zolt_text
