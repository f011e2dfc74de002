#include "tests/golden/log_lines.h"

#include <array>
#include <string_view>

#include "tests/support/text/time_stamp.h"

namespace golden {
namespace {

bool containsAny(const std::string& text, const auto& parts) {
    for (const std::string_view part : parts) {
        if (text.find(part) != std::string::npos) return true;
    }
    return false;
}

constexpr std::array<std::string_view, 6> kMainTexts = {
    "] signal ",           "interface listening", "couldn't open socket",
    "couldn't set socket", "couldn't bind",       "closed by command"};
constexpr std::array<std::string_view, 7> kSerialTexts = {
    "try to catch hardware", "hardware found", "comm timeout",    "unable to ",
    "ttyUSB devices",        "from tcsetattr", "serial interface"};

// The number of a client's port differs from run to run.
std::string withoutPeerPort(const std::string& text) {
    const auto colon = text.rfind(':');
    if (text.find("interface from ") == std::string::npos || colon == std::string::npos ||
        colon + 1 == text.size() ||
        text.find_first_not_of("0123456789", colon + 1) != std::string::npos) {
        return text;
    }
    return text.substr(0, colon) + ":PORT";
}

}  // namespace

Item logItem(const std::string& line) {
    return {"log", ItemKind::kLine, withoutPeerPort(support::withoutLogTime(line))};
}

std::string logSource(const std::string& text) {
    if (containsAny(text, kMainTexts)) return "main";
    if (text.find("CAE interface") != std::string::npos) return "cae";
    if (text.find("IO interface") != std::string::npos) return "io";
    if (text.find("MON interface") != std::string::npos) return "mon";
    return containsAny(text, kSerialTexts) ? "serial" : "main";
}

std::string channelKey(const Item& item) {
    return item.channel == "log" ? "log of " + logSource(item.text) : item.channel;
}

bool isTimeout(const Item& item) {
    return item.channel == "log" && item.text.find("comm timeout") != std::string::npos;
}

bool isShutdownNoise(const Item& item) {
    if (item.channel == "bus") return true;
    if (item.channel != "log") return false;
    return logSource(item.text) == "serial" ||
           item.text.find("socket select error") != std::string::npos;
}

}  // namespace golden
