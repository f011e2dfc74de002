#include "control/driver_commands.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <optional>
#include <string>

#include "bus/card_kinds.h"
#include "bus/polling.h"
#include "bus/wire.h"
#include "common/text.h"
#include "control/card_config.h"
#include "control/console_discovery.h"
#include "control/help_text.h"
#include "core/speed.h"

namespace {

constexpr const char* kVersion = "1.20";

// "SPEED=ppp"

/// What stands between the first "=" and the first character out of the
/// separator's set; nothing when they stand the other way round.
std::optional<std::string> speedText(const ConsoleLine& line) {
    const std::size_t start = line.text().find('=') + 1;
    const std::size_t end =
        std::min(line.text().find_first_of(line.separator()), line.text().size());
    if (end < start) {
        return std::nullopt;
    }
    return line.text().substr(start, end - start);
}

bool setSpeed(Console& console, const ConsoleLine& line) {
    const std::optional<std::string> percentText = speedText(line);
    if (!percentText) {
        console.reply("CIE: Command ERROR");
        return true;
    }
    const long percent = ATOL(*percentText);
    if (percent < 1 || percent > 100) {
        console.reply("CIE: Parameter is out of range (1..100)");
        return true;
    }
    console.host().setThreadDelay(threadDelayOfPercent(percent));
    console.reply("CIA: SPEED IS SET to " + *percentText + "%");
    return true;
}

// Polling

void replyGlobalPolling(Console& console) {
    console.reply(console.host().polling() ? "CIA: GLOBAL POLLING IS ENABLED"
                                           : "CIA: GLOBAL POLLING IS DISABLED");
}

template <bool on>
bool setGlobalPolling(Console& console, const ConsoleLine& /*line*/) {
    console.host().setPolling(on);
    replyGlobalPolling(console);
    return true;
}

template <bool on>
bool setCardPolling(Console& console, const ConsoleLine& line) {
    const std::string addressText = line.atColon(1);
    PERIFCARD& card = console.host().card(digitOf(addressText));
    if (card.cardClass != card_class::kInput) {
        console.reply("CIE: THIS COMMAND IS VALID ON INPUT CARDS");
        return true;
    }
    card.pollingOn = on;
    console.reply((on ? "CIA: POLLON is OK at address " : "CIA: POLLOFF is OK at address ") +
                  addressText);
    return true;
}

bool showPollStates(Console& console, const ConsoleLine& /*line*/) {
    replyGlobalPolling(console);
    for (unsigned address = 0; address < wire::kAddresses; ++address) {
        const PERIFCARD& card = console.host().card(address);
        if (card.cardClass == card_class::kInput) {
            std::array<char, 32> text{};
            std::snprintf(text.data(), text.size(), "PTI:0x%X:%s", address,
                          card.pollingOn ? "ON" : "OFF");
            console.reply(text.data());
        }
    }
    return true;
}

// "GETLASTINPST:x=b"

/// How many blocks of an input card can be asked for.
unsigned inputBlocks(char kind) {
    switch (kind) {
        case card_kind::kDigitalInput:
            return 2;
        case card_kind::kAnalogueInput:
            return 6;
        default:
            return 0;
    }
}

bool sendLastInput(Console& console, const ConsoleLine& line) {
    const unsigned address = digitOf(line.atColon(1));
    const unsigned block = digitOf(line.afterEquals(1));
    const PERIFCARD& card = console.host().card(address);
    const unsigned blocks = inputBlocks(card.kindCode);
    if (blocks == 0) {
        console.reply("CIE: THIS COMMAND IS VALID ON ANALOG OR DIGITAL INPUT CARD ONLY");
    } else if (block >= blocks) {
        console.reply("CIE: INVALID BLOCK NUMBER");
    } else {
        // Through the bus reports, so that it reaches the IO client like a change.
        console.host().report(
            Convert_CharBuff2QList(inputReport(address, block, card.values[block]).c_str()));
        console.reply("CIA: LAST INPUT STATE SENT ON IO INTERFACE");
    }
    return true;
}

// The rest

bool showVersion(Console& console, const ConsoleLine& /*line*/) {
    console.reply(std::string("CIA: DRIVER VERSION ") + kVersion);
    return true;
}

bool leave(Console& console, const ConsoleLine& /*line*/) {
    console.reply("ZOLT: Bye Bye...");
    console.host().pause(1);
    console.host().closeConnection();
    return true;
}

template <const auto& lines>
bool showText(Console& console, const ConsoleLine& /*line*/) {
    for (const char* text : lines) {
        console.reply(text);
    }
    return true;
}

constexpr std::array kCommands{
    DriverCommand{"SPEED=", Match::kKeywordOnly, setSpeed},
    DriverCommand{"DISABLEPOLL", Match::kExact, setGlobalPolling<false>},
    DriverCommand{"DRVVER", Match::kExact, showVersion},
    // Every line contains the empty word: the card configuration commands have a
    // table of their own, which is walked here.
    DriverCommand{"", Match::kKeywordOnly, runCardConfigCommands},
    DriverCommand{"POLLON:", Match::kContains, setCardPolling<true>},
    DriverCommand{"POLLOFF:", Match::kContains, setCardPolling<false>},
    DriverCommand{"ENABLEPOLL", Match::kExact, setGlobalPolling<true>},
    DriverCommand{"POLLSTATE", Match::kExact, showPollStates},
    DriverCommand{"DISCOVER", Match::kExact, showCards},
    DriverCommand{"FORCEDISCOVER", Match::kExact, rediscoverCards},
    DriverCommand{"EXIT", Match::kExact, leave},
    DriverCommand{"GETLASTINPST:", Match::kContains, sendLastInput},
    DriverCommand{"HELP", Match::kExact, showText<help_text::kHelp>},
    DriverCommand{"IOEXAMPLES", Match::kExact, showText<help_text::kIoExamples>},
};

}  // namespace

bool matches(const ConsoleLine& line, const char* keyword, Match match) {
    switch (match) {
        case Match::kKeywordOnly:
            return line.contains(keyword);
        case Match::kContains:
            return line.contains(keyword) && line.isTerminated();
        case Match::kExact:
            return line.is(keyword);
    }
    return false;
}

std::span<const DriverCommand> driverCommands() {
    return kCommands;
}
