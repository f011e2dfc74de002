// cards, discover, poll.
#include <nlohmann/json.hpp>

#include "ctl/arguments.h"
#include "ctl/commands.h"
#include "ctl/console_session.h"
#include "ctl/output.h"
#include "ctl/replies.h"
#include "ctl/text.h"

namespace ctl {
namespace {

/// Lines without the last one's line feed.
std::string joined(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines) {
        text += (text.empty() ? "" : "\n") + line;
    }
    return text;
}

void printCards(const Settings& settings, const std::vector<CardEntry>& cards, bool all) {
    Json json = Json::array();
    std::vector<std::string> lines;
    for (const CardEntry& card : cards) {
        if (all || card.kind != kNoCard) {
            json.push_back({{"address", std::string(1, card.address)}, {"kind", card.kind}});
            lines.push_back(std::string(1, card.address) + "  " + printable(card.kind));
        }
    }
    if (lines.empty()) {
        lines.emplace_back("no cards");
    }
    writeResult(settings.json, joined(lines), json);
}

std::vector<CardEntry> askCards(const Settings& settings, const std::string& command) {
    ConsoleSession console(settings.at(Port::kCae), settings.timeout);
    return parseCards(console.ask(command), command);
}

std::string stateText(bool on) {
    return on ? "on" : "off";
}

}  // namespace

void showCards(const Settings& settings, bool all) {
    printCards(settings, askCards(settings, "DISCOVER"), all);
}

void discover(const Settings& settings, bool force) {
    printCards(settings, askCards(settings, force ? "FORCEDISCOVER" : "DISCOVER"), true);
}

void showPolling(const Settings& settings) {
    ConsoleSession console(settings.at(Port::kCae), settings.timeout);
    const PollStates states = parsePollStates(console.ask("POLLSTATE"), "POLLSTATE");
    Json cards = Json::array();
    std::vector<std::string> lines{"global polling is " + stateText(states.global)};
    for (const PollEntry& card : states.cards) {
        const std::string address(1, card.address);
        cards.push_back({{"address", address}, {"polling", card.polling}});
        lines.push_back(address + "  " + stateText(card.polling));
    }
    writeResult(settings.json, joined(lines), {{"global", states.global}, {"cards", cards}});
}

}  // namespace ctl
