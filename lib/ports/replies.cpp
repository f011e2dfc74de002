#include "lib/ports/replies.h"

#include "lib/text/printable.h"

namespace zolt_ports {
namespace {

constexpr std::size_t kAddresses = 16;
constexpr std::string_view kAddressDigits = "0123456789ABCDEF";

/// The parts of a line such as "DTI:0xA:VALUE".
struct Entry {
    char address;
    std::string value;
};

PortError foreign(const std::string& command, const std::string& lines) {
    return notZolt("the answer to " + zolt_text::printable(command), zolt_text::quote(lines));
}

/// Takes a line apart that begins with `start`. Throws if the line has another form or no
/// value.
Entry entryOf(const std::string& line, const std::string& command, std::string_view start) {
    const std::size_t digit = start.size();
    if (!line.starts_with(start) || line.size() < digit + 3 || line[digit + 1] != ':' ||
        kAddressDigits.find(line[digit]) == std::string_view::npos) {
        throw foreign(command, line);
    }
    return {line[digit], line.substr(digit + 2)};
}

}  // namespace

void expectAccepted(const Reply& reply, const std::string& command) {
    if (reply.unknown) {
        throw PortError(Reason::kNotKnown, "the daemon does not know " +
                                               zolt_text::printable(command) +
                                               " (CIE: UNKNOWN COMMAND)");
    }
    for (const std::string& line : reply.lines) {
        if (line.starts_with("CIE:")) {
            throw PortError(Reason::kRefused, zolt_text::printable(line));
        }
    }
}

PortError foreignReply(const Reply& reply, const std::string& command) {
    std::string text;
    for (const std::string& line : reply.lines) {
        text += (text.empty() ? "" : "\n") + line;
    }
    return foreign(command, text);
}

std::string onlyLine(const Reply& reply, const std::string& command, std::string_view start) {
    expectAccepted(reply, command);
    if (reply.lines.size() != 1 || !reply.lines[0].starts_with(start)) {
        throw foreignReply(reply, command);
    }
    return reply.lines[0].substr(start.size());
}

std::vector<CardEntry> parseCards(const Reply& reply, const std::string& command) {
    expectAccepted(reply, command);
    const std::string heading = command == "DISCOVER" ? "DISCOVER LIST:" : "FORCED DISCOVER LIST:";
    if (reply.lines.size() != kAddresses + 1 || reply.lines[0] != heading) {
        throw foreignReply(reply, command);
    }
    std::vector<CardEntry> cards;
    for (std::size_t i = 0; i < kAddresses; ++i) {
        const std::string& line = reply.lines[i + 1];
        const Entry entry = entryOf(line, command, "DTI:0x");
        if (entry.address != kAddressDigits[i]) {
            throw foreign(command, line);
        }
        cards.push_back({entry.address, kindNamed(entry.value), entry.value});
    }
    return cards;
}

PollStates parsePollStates(const Reply& reply, const std::string& command) {
    expectAccepted(reply, command);
    constexpr std::string_view kGlobal = "CIA: GLOBAL POLLING IS ";
    if (reply.lines.empty() || !reply.lines[0].starts_with(kGlobal)) {
        throw foreignReply(reply, command);
    }
    const std::string state = reply.lines[0].substr(kGlobal.size());
    if (state != "ENABLED" && state != "DISABLED") {
        throw foreignReply(reply, command);
    }
    PollStates states{state == "ENABLED", {}};
    for (std::size_t i = 1; i < reply.lines.size(); ++i) {
        const Entry entry = entryOf(reply.lines[i], command, "PTI:0x");
        if (entry.value != "ON" && entry.value != "OFF") {
            throw foreign(command, reply.lines[i]);
        }
        states.cards.push_back({entry.address, entry.value == "ON"});
    }
    return states;
}

}  // namespace zolt_ports
