#include <nlohmann/json.hpp>

#include "apps/zoltctl/commands/command.h"
#include "apps/zoltctl/output/output.h"
#include "lib/ports/blocking/console_session.h"
#include "lib/ports/replies.h"
#include "lib/text/printable.h"

namespace zoltctl {

using zolt_ports::CardEntry;
using zolt_ports::ConsoleSession;
using zolt_ports::foreignReply;
using zolt_ports::onlyLine;
using zolt_ports::parseCards;
using zolt_ports::parsePollStates;
using zolt_ports::PollEntry;
using zolt_ports::PollStates;
using zolt_ports::Port;
using zolt_ports::PortError;
using zolt_ports::Reply;

namespace {

/// The lines with a line feed between them.
std::string joinedLines(const std::vector<std::string>& lines) {
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
        if (all || zolt_ports::rowOf(card.kind).isCard) {
            json.push_back({{"address", std::string(1, card.address)}, {"kind", card.name}});
            lines.push_back(std::string(1, card.address) + "  " + zolt_text::printable(card.name));
        }
    }
    if (lines.empty()) {
        lines.emplace_back("no cards");
    }
    writeResult(settings, joinedLines(lines), json);
}

std::vector<CardEntry> askCards(const Settings& settings, const std::string& command) {
    ConsoleSession console(settings.at(Port::kCae), settings.timeout);
    return parseCards(console.ask(command), command);
}

std::string stateText(bool on) {
    return on ? "on" : "off";
}

void showPolling(const Settings& settings, ConsoleSession& console) {
    const PollStates states = parsePollStates(console.ask("POLLSTATE"), "POLLSTATE");
    Json cards = Json::array();
    std::vector<std::string> lines{"global polling is " + stateText(states.global)};
    for (const PollEntry& card : states.cards) {
        const std::string address(1, card.address);
        cards.push_back({{"address", address}, {"polling", card.polling}});
        lines.push_back(address + "  " + stateText(card.polling));
    }
    writeResult(settings, joinedLines(lines), {{"global", states.global}, {"cards", cards}});
}

void switchGlobalPolling(const Settings& settings, ConsoleSession& console, bool on) {
    const std::string command = on ? "ENABLEPOLL" : "DISABLEPOLL";
    const Reply reply = console.ask(command);
    if (onlyLine(reply, command, "CIA: GLOBAL POLLING IS ") != (on ? "ENABLED" : "DISABLED")) {
        throw foreignReply(reply, command);
    }
    writeResult(settings, "global polling is " + stateText(on), {{"global", on}});
}

/// Throws if one of the cards is no input card. Without this check the daemon would refuse
/// that card after it has switched the ones before it.
void expectInputCards(ConsoleSession& console, const std::string& addresses) {
    std::string inputs;
    for (const PollEntry& card : parsePollStates(console.ask("POLLSTATE"), "POLLSTATE").cards) {
        inputs += card.address;
    }
    const std::size_t other = addresses.find_first_not_of(inputs);
    if (other != std::string::npos) {
        throw Failure(Status::kRefused,
                      std::string("card ") + addresses[other] +
                          " is not an input card; the polling of no card has been switched");
    }
}

void switchCardPolling(ConsoleSession& console, bool on, const std::string& address) {
    const std::string word = on ? "POLLON" : "POLLOFF";
    const std::string command = word + ":" + address;
    const Reply reply = console.ask(command);
    try {
        if (onlyLine(reply, command, "CIA: " + word + " is OK at address ") != address) {
            throw foreignReply(reply, command);
        }
    } catch (const PortError& error) {
        throw PortError(error.reason(), "card " + address + ": " + error.what());
    }
}

}  // namespace

void showCards(const Settings& settings, const Request& request) {
    printCards(settings, askCards(settings, "DISCOVER"), request.has("--all"));
}

void discover(const Settings& settings, const Request& request) {
    const char* command = request.has("--force") ? "FORCEDISCOVER" : "DISCOVER";
    printCards(settings, askCards(settings, command), true);
}

void poll(const Settings& settings, const Request& request) {
    ConsoleSession console(settings.at(Port::kCae), settings.timeout);
    const Fields& fields = request.fields;
    if (!fields.card.on) {
        showPolling(settings, console);
        return;
    }
    if (fields.addresses.empty()) {
        switchGlobalPolling(settings, console, *fields.card.on);
        return;
    }
    if (fields.addresses.size() > 1) {
        expectInputCards(console, fields.addresses);
    }
    Json json = Json::array();
    std::string text;
    for (const char digit : fields.addresses) {
        const std::string address(1, digit);
        switchCardPolling(console, *fields.card.on, address);
        json.push_back({{"address", address}, {"polling", *fields.card.on}});
        text += (text.empty() ? "card " : "\ncard ") + address + ": polling is " +
                stateText(*fields.card.on);
    }
    writeResult(settings, text, json);
}

}  // namespace zoltctl
