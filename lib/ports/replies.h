#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "lib/ports/card_kind.h"
#include "lib/ports/dialogue.h"
#include "lib/ports/port_error.h"

/// Reads the console's replies. The functions that read throw PortError: kRefused or
/// kNotKnown if the daemon refuses the command, kNotZolt if the command cannot
/// have this reply.
namespace zolt_ports {

/// Throws if the reply refuses the command: the daemon does not know it, or a line begins
/// with "CIE:".
void expectAccepted(const Reply& reply, const std::string& command);

/// The error for a reply that the command cannot have.
PortError foreignReply(const Reply& reply, const std::string& command);

/// The reply's only line without `start`, with which it has to begin.
std::string onlyLine(const Reply& reply, const std::string& command, std::string_view start);

struct CardEntry {
    char address;  ///< an upper-case hexadecimal digit
    CardKind kind;
    /// What the daemon calls the kind, also if it is none of the table's.
    std::string name;
};

/// Reads the reply to DISCOVER or FORCEDISCOVER: the sixteen addresses in their order.
std::vector<CardEntry> parseCards(const Reply& reply, const std::string& command);

struct PollEntry {
    char address;  ///< an upper-case hexadecimal digit
    bool polling;
};

struct PollStates {
    bool global;
    std::vector<PollEntry> cards;  ///< the input cards
};

/// Reads the reply to POLLSTATE.
PollStates parsePollStates(const Reply& reply, const std::string& command);

}  // namespace zolt_ports
