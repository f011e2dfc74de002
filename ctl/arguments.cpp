#include "ctl/arguments.h"

#include <algorithm>

#include "ctl/failure.h"
#include "ctl/text.h"

namespace ctl {
namespace {

/// The daemon's frame holds no more.
constexpr std::size_t kStreamBytes = 34;

Failure usage(const std::string& argument, const std::string& text) {
    return {Status::kUsage, quoted(argument) + " is no " + text};
}

char upperDigit(const std::string& text, const char* what) {
    if (text.size() != 1 || !hexDigit(text[0])) {
        throw usage(text, what);
    }
    return upperCase(text)[0];
}

}  // namespace

char parseAddress(const std::string& text) {
    return upperDigit(text, "address: one digit 0 to F");
}

char parseBlock(const std::string& text) {
    return upperDigit(text, "block: one digit 0 to F");
}

std::string parseStream(const std::string& text) {
    const bool digits = std::all_of(text.begin(), text.end(),
                                    [](char digit) { return hexDigit(digit).has_value(); });
    if (!digits || text.empty() || text.size() % 2 != 0 || text.size() > 2 * kStreamBytes) {
        throw usage(text, "IR stream: 1 to 34 pairs of hexadecimal digits");
    }
    return upperCase(text);
}

bool parseSwitch(const std::string& text) {
    if (text != "on" && text != "off") {
        throw usage(text, "state: on or off");
    }
    return text == "on";
}

std::string parsePercent(const std::string& text) {
    constexpr unsigned kLimit = 999;
    const auto percent = parseDecimal(text, kLimit);
    if (!percent) {
        throw usage(text, "percentage: a number from 1 to 100");
    }
    return std::to_string(*percent);
}

Seconds parseDuration(const std::string& text) {
    constexpr double kYear = 31'536'000;
    const auto seconds = parsePositive(text, kYear);
    if (!seconds) {
        throw usage(text, "time: seconds above 0 and up to a year, fractions allowed");
    }
    return Seconds(*seconds);
}

unsigned parseCount(const std::string& text) {
    constexpr unsigned kLimit = 2'000'000'000;
    const auto count = parseDecimal(text, kLimit);
    if (!count || *count == 0) {
        throw usage(text, "count: a number from 1 on");
    }
    return *count;
}

}  // namespace ctl
