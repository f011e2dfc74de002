// The thirteen card configuration commands in readable words.
#pragma once

#include <nlohmann/json_fwd.hpp>
#include <span>
#include <string>

#include "apps/zoltctl/command_line/phrase.h"
#include "apps/zoltctl/output/output.h"
#include "apps/zoltctl/ports/dialogue.h"

namespace ctl {

/// In the texts %a is the address, %e the end, %c the channel, %s the state in
/// capitals, %o the same in small letters and %v the value.
struct CardConfigRow {
    const char* pattern;  ///< as in phrase.h
    const char* name;     ///< what the JSON calls it
    const char* command;  ///< what the console is sent
    const char* success;  ///< the first line of its reply
    const char* result;   ///< the second, null when there is none
    const char* text;     ///< the result for people
};

std::span<const CardConfigRow> cardConfigRows();

/// A text of a row with its parameters filled in.
std::string filledIn(const char* text, const Fields& fields);

/// Checks the reply and returns the fields with the value that it tells. Throws
/// Failure.
Fields parseConfigReply(const CardConfigRow& row, const Fields& fields, const Reply& reply);

Json configJson(const CardConfigRow& row, const Fields& fields);

}  // namespace ctl
