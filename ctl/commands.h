// The commands, one function each. They check their arguments, do what they say
// and print the result. All throw Failure.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "ctl/settings.h"

namespace ctl {

void showCards(const Settings& settings, bool all);
void discover(const Settings& settings, bool force);
void showPolling(const Settings& settings);
/// Without addresses the global switch.
void switchPolling(const Settings& settings, bool on, const std::vector<std::string>& addresses);
/// Without a block all that the card has.
void showInput(const Settings& settings, const std::string& address,
               const std::optional<std::string>& block);

void setSpeed(const Settings& settings, const std::string& percent);
void showVersion(const Settings& settings);
void rawConsole(const Settings& settings, const std::string& line);
void rawIo(const Settings& settings, const std::string& line);

}  // namespace ctl
