// Standard output, as text for people or as JSON for programs. The JSON of each
// command (addresses are one-letter texts, "hex" has two digits):
//
//   cards, discover     [{"address":"3","kind":"16 channel DIGITAL INPUT"}, ...]
//   poll                {"global":true,"cards":[{"address":"3","polling":true}, ...]}
//   poll on|off         {"global":true}
//   poll on|off 3 F     [{"address":"3","polling":true}, ...]
//   input               [{"address":"3","block":0,"value":64,"hex":"40"}, ...]
//   set                 {"address":"5","block":1,"value":251,"hex":"FB","checked":true}
//   lcd                 {"address":"E","action":"clear","checked":true}
//                       ... "action":"light" (cursor, blink),"on":true ...
//                       ... "action":"text","column":3,"row":1,"text":"X" ...
//   ir                  {"address":"9","bytes":9,"hex":"434F434B524F414348","checked":true}
//   config              {"address":"3","command":"servo end","end":"B","channel":2,
//                        "value":128,"hex":"80"}; the members after "command" are those
//                       that the command has: "end", "channel", "value" with "hex", "on"
//   speed               {"percent":50}
//   version             {"driver":"1.20"}
//   raw cae             {"reply":["CIA: DRIVER VERSION 1.20"]}
//   raw io              {"delivered":"a5b1dFB"}
//   watch, per line     {"time":"2026-11-21T14:03:07.123+01:00","address":"3",
//                        "kind":"16 channel DIGITAL INPUT","block":0,"value":64,"hex":"40"};
//                       "kind" is null when it is not known
//   monitor, per line   {"time":"2026-11-21T14:03:07.123+01:00","line":"a3b0d40"}
//   console, per line   {"command":"DRVVER","reply":["CIA: DRIVER VERSION 1.20"]} or
//                       {"unasked":"COE:Illegal command -> zzz"}
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
