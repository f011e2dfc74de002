#pragma once

#include <nlohmann/json_fwd.hpp>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "apps/zoltctl/arguments/settings.h"
#include "apps/zoltctl/failure.h"

/// Standard output: a text for people, or JSON for programs. zoltctl(1) lists the JSON of
/// each command.
namespace zoltctl {

using Json = nlohmann::ordered_json;

/// The JSON in one line. Bytes that are not UTF-8 become the replacement character.
std::string oneLine(const Json& json);

/// The lines for a terminal, with a line feed after each.
std::string printableLines(const std::vector<std::string>& lines);

/// Writes the whole text to standard output at once. `patience` is how long the reader may
/// take nothing. Without it, and at a terminal, which Ctrl-S may have stopped, this waits
/// without a limit. Throws Failure, with an empty text if the reader has left.
void writeOut(std::string_view text, std::optional<zolt_os::Seconds> patience);

/// The failure for a reader that takes nothing.
Failure outputStuck();

/// Writes the text or, if the settings say so, the JSON, with a line feed after it.
void writeResult(const Settings& settings, const std::string& text, const Json& json);

}  // namespace zoltctl
