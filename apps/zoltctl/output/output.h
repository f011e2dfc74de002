// Standard output, as text for people or as JSON for programs. zoltctl(1) lists
// the JSON of each command.
#pragma once

#include <nlohmann/json_fwd.hpp>
#include <optional>
#include <string>
#include <string_view>

#include "apps/zoltctl/command_line/settings.h"
#include "apps/zoltctl/failure.h"
#include "apps/zoltctl/ports/deadline.h"

namespace ctl {

using Json = nlohmann::ordered_json;

/// The JSON in one line; bytes that are no UTF-8 become the replacement
/// character.
std::string oneLine(const Json& json);

/// Writes all of it to standard output, now. `patience` is how long a reader may
/// take nothing; without it, and at a terminal, where somebody has stopped it, for
/// as long as it takes. Throws Failure: quietly when the reader has left, and
/// telling why when the output cannot be written.
void writeOut(std::string_view text, std::optional<Seconds> patience);

/// The failure for a reader that takes nothing.
Failure nobodyReads();

/// Writes the one that the settings want, with a line feed behind it.
void writeResult(const Settings& settings, const std::string& text, const Json& json);

}  // namespace ctl
