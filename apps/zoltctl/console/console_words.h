#pragma once

#include <string>
#include <vector>

namespace ctl {

/// The console's command words that begin with `start`, in their order.
std::vector<std::string> consoleWords(const std::string& start);

/// The longest beginning that all words share.
std::string commonStart(const std::vector<std::string>& words);

}  // namespace ctl
