#include "tests/golden/dialogue_settings.h"

#include <charconv>
#include <functional>
#include <map>
#include <sstream>
#include <stdexcept>

#include "tests/support/process/sim_process.h"
#include "tests/support/text/text_escape.h"

namespace golden {
namespace {

using Setting = std::function<void(Setup&, const std::string&)>;

bool readSwitch(const std::string& text) {
    if (text == "on") return true;
    if (text == "off") return false;
    throw std::invalid_argument("expected on or off, not \"" + text + "\"");
}

int readNumber(const std::string& text) {
    int value = 0;
    const auto [stop, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || stop != text.data() + text.size()) {
        throw std::invalid_argument("expected a number, not \"" + text + "\"");
    }
    return value;
}

// For example: io in ";"
void readSeparator(Setup& setup, const std::string& argument) {
    std::istringstream words(argument);
    std::string interface, direction, quoted;
    words >> interface >> direction >> quoted;
    const std::map<std::string, support::InterfaceSettings*> interfaces = {
        {"io", &setup.settings.io}, {"cae", &setup.settings.cae}, {"mon", &setup.settings.mon}};
    const auto found = interfaces.find(interface);
    if (found == interfaces.end() || (direction != "in" && direction != "out") ||
        quoted.size() < 2 || quoted.front() != '"' || quoted.back() != '"') {
        throw std::invalid_argument("expected: separator io|cae|mon in|out \"TEXT\"");
    }
    // The text stays as it is: the configuration file, too, has \r and \n in letters.
    const std::string value = quoted.substr(1, quoted.size() - 2);
    (direction == "in" ? found->second->inSeparator : found->second->outSeparator) = value;
}

const std::map<std::string, Setting>& settings() {
    static const std::map<std::string, Setting> table = {
        {"bus", [](Setup& setup, const auto& text) { setup.bus = support::shippedBus(text); }},
        {"bus-line",
         [](Setup& setup, const auto& text) { setup.bus = setup.bus.value_or("") + text + '\n'; }},
        {"link", [](Setup& setup, const auto& text) { setup.link = text; }},
        {"baud", [](Setup& setup, const auto& text) { setup.baud = readNumber(text); }},
        {"polls",
         [](Setup& setup, const auto& text) {
             if (text != "shown") throw std::invalid_argument("expected: polls shown");
             setup.pollsShown = true;
         }},
        {"polling",
         [](Setup& setup, const auto& text) { setup.settings.polling = readSwitch(text); }},
        {"discover",
         [](Setup& setup, const auto& text) { setup.settings.discover = readSwitch(text); }},
        {"percent",
         [](Setup& setup, const auto& text) { setup.settings.percent = readNumber(text); }},
        {"loglevel",
         [](Setup& setup, const auto& text) { setup.settings.logLevel = readNumber(text); }},
        {"separator", [](Setup& setup, const auto& text) { readSeparator(setup, text); }},
        {"config-line",
         [](Setup& setup, const auto& text) {
             setup.configuration = setup.configuration.value_or("") + text + '\n';
         }},
    };
    return table;
}

}  // namespace

void applySetting(Setup& setup, const std::string& keyword, const std::string& argument) {
    const auto found = settings().find(keyword);
    if (found == settings().end()) {
        throw std::invalid_argument("unknown setting or action \"" + keyword + "\"");
    }
    found->second(setup, argument);
}

std::chrono::milliseconds readSeconds(const std::string& text) {
    double seconds = 0;
    const auto [stop, error] = std::from_chars(text.data(), text.data() + text.size(), seconds);
    if (error != std::errc() || stop != text.data() + text.size() || seconds < 0) {
        throw std::invalid_argument("expected seconds, not \"" + text + "\"");
    }
    return std::chrono::milliseconds(static_cast<long>(seconds * 1000));
}

}  // namespace golden
