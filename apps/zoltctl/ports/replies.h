// What the console's replies say. A reply that the command cannot have is a
// Failure of status kNotZolt, one that refuses is of status kRefused.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "apps/zoltctl/failure.h"
#include "apps/zoltctl/ports/dialogue.h"

namespace ctl {

/// Throws when the reply refuses the command: an unknown command, or a line that
/// begins with "CIE:".
void expectAccepted(const Reply& reply, const std::string& command);

/// The failure for a reply that the command cannot have.
Failure foreignReply(const Reply& reply, const std::string& command);

/// The rest of the only line of a reply, which has to begin with `start`.
std::string onlyLine(const Reply& reply, const std::string& command, std::string_view start);

struct CardEntry {
    char address;
    std::string kind;
};

constexpr std::string_view kNoCard = "EMPTY";

/// Of DISCOVER and FORCEDISCOVER: the sixteen addresses in their order.
std::vector<CardEntry> parseCards(const Reply& reply, const std::string& command);

struct PollEntry {
    char address;
    bool polling;
};

struct PollStates {
    bool global;
    std::vector<PollEntry> cards;
};

PollStates parsePollStates(const Reply& reply, const std::string& command);

}  // namespace ctl
