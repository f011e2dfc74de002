#include "apps/zoltctl/console/console_words.h"

#include <algorithm>
#include <array>

namespace zoltctl {
namespace {

constexpr std::array kWords{
    "DISABLEPOLL", "DISCOVER",      "DRVVER",       "ENABLEPOLL",   "EXIT",     "FORCEDISCOVER",
    "GETANMASK:",  "GETLASTINPST:", "GETMSR",       "GETSCA",       "GETSCB",   "HELP",
    "IOEXAMPLES",  "LCDINITLIGHT:", "LCDSELFTEST:", "MOVESTRPOS:",  "POLLOFF:", "POLLON:",
    "POLLSTATE",   "REBOOT:",       "SETANMASK:",   "SETMSR",       "SETSCA",   "SETSCB",
    "SPEED=",      "STOREANMASK:",  "STOREMSRS:",   "STORESRVPOS:",
};

}  // namespace

std::span<const char* const> consoleWords() {
    return kWords;
}

std::vector<std::string> completionsOf(const std::string& start) {
    std::vector<std::string> words;
    for (const std::string word : kWords) {
        if (word.starts_with(start)) {
            words.push_back(word);
        }
    }
    return words;
}

std::string commonStart(const std::vector<std::string>& words) {
    if (words.empty()) {
        return {};
    }
    std::string start = words[0];
    for (const std::string& word : words) {
        const auto end = std::mismatch(start.begin(), start.end(), word.begin(), word.end()).first;
        start.erase(end, start.end());
    }
    return start;
}

}  // namespace zoltctl
