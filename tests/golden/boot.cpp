#include "tests/golden/boot.h"

#include <algorithm>
#include <map>
#include <sstream>
#include <stdexcept>

namespace golden {
namespace {

// Written down rather than computed, so that the daemon's formula is not repeated here.
const std::map<int, std::string>& startDelays() {
    static const std::map<int, std::string> delays = {{50, "2525"}, {-400, "25248"}};
    return delays;
}

std::string startDelay(const Setup& setup) {
    const auto found = startDelays().find(setup.settings.percent.value_or(0));
    if (found == startDelays().end()) {
        throw std::invalid_argument("boot knows the delays of percent 50 and -400 only");
    }
    return found->second;
}

std::string upperCase(std::string text) {
    for (char& letter : text) {
        if (letter >= 'a' && letter <= 'z') letter = static_cast<char>(letter - 'a' + 'A');
    }
    return text;
}

Item info(const std::string& text) {
    return {"log", ItemKind::kLine, "[INF] " + text};
}

std::string switchText(bool on) {
    return on ? "TRUE" : "FALSE";
}

std::string welcome(const std::string& interface) {
    const std::string first = "ZOLT " + upperCase(interface) + " interface is ready\r\n";
    return first + (interface == "cae" ? "(Type HELP for help)\r\n>\r\n\r" : "\r");
}

}  // namespace

std::vector<std::string> bootClients(const std::string& argument) {
    std::istringstream words(argument);
    std::vector<std::string> clients;
    for (std::string client; words >> client;) clients.push_back(client);
    return clients;
}

std::vector<Item> bootItems(const Setup& setup, const std::vector<std::string>& clients) {
    if (!setup.bus || setup.configuration) {
        throw std::invalid_argument("boot needs a bus and no config-line");
    }
    const auto& settings = setup.settings;
    std::vector<Item> items = {
        info("zolt is started"),
        info("Initparam Autodiscover: " + switchText(settings.discover)),
        info("Initparam Enablepoll: " + switchText(settings.polling)),
        info("Initparam Speed (ThreadDelay): " + startDelay(setup)),
        info("CAE interface listening on port " + std::to_string(settings.cae.port)),
        info("IO interface listening on port " + std::to_string(settings.io.port)),
        info("MON interface listening on port " + std::to_string(settings.mon.port)),
        info("CAE interface is waiting for incoming connection"),
        info("IO interface is waiting for incoming connection"),
        info("MON interface is waiting for incoming connection"),
        info("try to catch hardware on " + setup.link),
        info("hardware found on " + setup.link + " version: 1.04"),
        {"bus", ItemKind::kLine, "host> 03 | 40 6F 9A"},
        {"bus", ItemKind::kLine, "bus> 05 | 06 31 2E 30 34"},
    };
    if (settings.discover) items.push_back({"bus", ItemKind::kLine, "host> 01 | 30"});
    for (const auto& client : clients) {
        const std::string interface = clientInterface(client);
        if (interface.empty()) throw std::invalid_argument("\"" + client + "\" is not a client");
        items.push_back(info("client is connected on " + upperCase(interface) +
                             " interface from 127.0.0.1:PORT"));
        items.push_back({client, ItemKind::kBytes, welcome(interface)});
    }
    return items;
}

std::vector<Item> withoutImplied(std::vector<Item> recorded, const std::vector<Item>& implied) {
    for (const auto& item : implied) {
        const auto found = std::find(recorded.begin(), recorded.end(), item);
        if (found == recorded.end()) {
            throw std::runtime_error("\"" + writeItem(item) +
                                     "\" is missing after boot: write start and connect instead");
        }
        recorded.erase(found);
    }
    return recorded;
}

}  // namespace golden
