#include "apps/zoltctl/ports/replies.h"

#include "apps/zoltctl/output/text.h"

namespace ctl {
namespace {

constexpr std::size_t kAddresses = 16;
constexpr std::string_view kAddressDigits = "0123456789ABCDEF";

/// What stands behind "XTI:0xA:", with A put into `address`; the line is whole
/// only with something behind.
bool splitEntry(std::string_view line, std::string_view start, char& address,
                std::string_view& rest) {
    const std::size_t digit = start.size();
    if (!startsWith(line, start) || line.size() < digit + 3 || line[digit + 1] != ':' ||
        kAddressDigits.find(line[digit]) == std::string_view::npos) {
        return false;
    }
    address = line[digit];
    rest = line.substr(digit + 2);
    return true;
}

}  // namespace

void expectAccepted(const Reply& reply, const std::string& command) {
    if (reply.unknown) {
        throw Failure(Status::kRefused, "the daemon does not know " + printable(command) +
                                            " (CIE: UNKNOWN COMMAND), or its InpSeparator is "
                                            "another than --line-end");
    }
    for (const std::string& line : reply.lines) {
        if (startsWith(line, "CIE:")) {
            throw Failure(Status::kRefused, printable(line));
        }
    }
}

Failure foreignReply(const Reply& reply, const std::string& command) {
    std::string text;
    for (const std::string& line : reply.lines) {
        text += (text.empty() ? "" : "\n") + line;
    }
    return {Status::kNotZolt,
            "the answer to " + printable(command) + " is none of zolt's: " + quote(text)};
}

std::string onlyLine(const Reply& reply, const std::string& command, std::string_view start) {
    expectAccepted(reply, command);
    if (reply.lines.size() != 1 || !startsWith(reply.lines[0], start)) {
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
        CardEntry card{};
        std::string_view kind;
        if (!splitEntry(reply.lines[i + 1], "DTI:0x", card.address, kind) ||
            card.address != kAddressDigits[i]) {
            throw Failure(Status::kNotZolt, "the answer to " + command +
                                                " is none of zolt's: " + quote(reply.lines[i + 1]));
        }
        card.kind = kind;
        cards.push_back(card);
    }
    return cards;
}

PollStates parsePollStates(const Reply& reply, const std::string& command) {
    expectAccepted(reply, command);
    constexpr std::string_view kGlobal = "CIA: GLOBAL POLLING IS ";
    if (reply.lines.empty() || !startsWith(reply.lines[0], kGlobal)) {
        throw foreignReply(reply, command);
    }
    const std::string state = reply.lines[0].substr(kGlobal.size());
    if (state != "ENABLED" && state != "DISABLED") {
        throw foreignReply(reply, command);
    }
    PollStates states{state == "ENABLED", {}};
    for (std::size_t i = 1; i < reply.lines.size(); ++i) {
        PollEntry entry{};
        std::string_view polling;
        if (!splitEntry(reply.lines[i], "PTI:0x", entry.address, polling) ||
            (polling != "ON" && polling != "OFF")) {
            throw Failure(Status::kNotZolt, "the answer to " + command +
                                                " is none of zolt's: " + quote(reply.lines[i]));
        }
        entry.polling = polling == "ON";
        states.cards.push_back(entry);
    }
    return states;
}

}  // namespace ctl
