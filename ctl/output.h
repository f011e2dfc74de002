// Standard output, as text for people or as JSON for programs. zoltctl(1) lists
// the JSON of each command.
#pragma once

#include <nlohmann/json_fwd.hpp>
#include <string>
#include <string_view>

namespace ctl {

using Json = nlohmann::ordered_json;

/// The JSON in one line; bytes that are no UTF-8 become the replacement
/// character.
std::string oneLine(const Json& json);

/// Writes all of it to standard output, now. Throws Failure: quietly when the
/// reader has left, and telling why when the output cannot be written.
void writeOut(std::string_view text);

/// Writes the one that is wanted, with a line feed behind it.
void writeResult(bool wantJson, const std::string& text, const Json& json);

}  // namespace ctl
