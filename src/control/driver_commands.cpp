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
#include "control/console_discovery.h"
#include "control/help_text.h"
#include "core/speed.h"

namespace {

constexpr const char* kVersion = "1.20";

// "SPEED=ppp"

/// The text between the first "=" and the first character that occurs in the
/// separator; nothing if that character comes first.
std::optional<std::string> speedText(const ConsoleLine& line) {
    const std::size_t start = line.text().find('=') + 1;
    const std::size_t end =
        std::min(line.text().find_first_of(line.separator()), line.text().size());
    if (end < start) {
        return std::nullopt;
    }
    return line.text().substr(start, end - start);
}

void setSpeed(ConsoleContext& console, const ConsoleLine& line) {
    const std::optional<std::string> percentText = speedText(line);
    if (!percentText) {
        console.reply("CIE: Command ERROR");
        return;
    }
    const long percent = ATOL(*percentText);
    if (percent < 1 || percent > 100) {
        console.reply("CIE: Parameter is out of range (1..100)");
        return;
    }
    console.host().setThreadDelay(threadDelayOfPercent(percent));
    console.reply("CIA: SPEED IS SET to " + *percentText + "%");
}

// Polling

void replyGlobalPolling(ConsoleContext& console) {
    console.reply(console.host().polling() ? "CIA: GLOBAL POLLING IS ENABLED"
                                           : "CIA: GLOBAL POLLING IS DISABLED");
}

void setGlobalPolling(ConsoleContext& console, bool on) {
    console.host().setPolling(on);
    replyGlobalPolling(console);
}

void enablePolling(ConsoleContext& console, const ConsoleLine& /*line*/) {
    setGlobalPolling(console, true);
}

void disablePolling(ConsoleContext& console, const ConsoleLine& /*line*/) {
    setGlobalPolling(console, false);
}

/// `done` is the success reply up to the address.
void setCardPolling(ConsoleContext& console, const ConsoleLine& line, bool on, const char* done) {
    const std::string addressText = line.atColon(1);
    PERIFCARD& card = console.host().card(digitOf(addressText));
    if (card.cardClass != CardClass::kInput) {
        console.reply("CIE: THIS COMMAND IS VALID ON INPUT CARDS");
        return;
    }
    card.pollingOn = on;
    console.reply(done + addressText);
}

void enableCardPolling(ConsoleContext& console, const ConsoleLine& line) {
    setCardPolling(console, line, true, "CIA: POLLON is OK at address ");
}

void disableCardPolling(ConsoleContext& console, const ConsoleLine& line) {
    setCardPolling(console, line, false, "CIA: POLLOFF is OK at address ");
}

void showPollStates(ConsoleContext& console, const ConsoleLine& /*line*/) {
    replyGlobalPolling(console);
    for (unsigned address = 0; address < wire::kAddresses; ++address) {
        const PERIFCARD& card = console.host().card(address);
        if (card.cardClass == CardClass::kInput) {
            std::array<char, 32> text{};
            std::snprintf(text.data(), text.size(), "PTI:0x%X:%s", address,
                          card.pollingOn ? "ON" : "OFF");
            console.reply(text.data());
        }
    }
}

// "GETLASTINPST:x=b"

void sendLastInput(ConsoleContext& console, const ConsoleLine& line) {
    const unsigned address = digitOf(line.atColon(1));
    const unsigned block = digitOf(line.afterEquals(1));
    const PERIFCARD& card = console.host().card(address);
    const std::size_t blocks = kindOf(card).askableBlocks;
    if (blocks == 0) {
        console.reply("CIE: THIS COMMAND IS VALID ON ANALOG OR DIGITAL INPUT CARD ONLY");
    } else if (block >= blocks) {
        console.reply("CIE: INVALID BLOCK NUMBER");
    } else {
        // The line goes through the bus reports, so that it reaches the IO client like a change.
        console.host().report(
            Convert_CharBuff2QList(inputReport(address, block, card.values[block]).c_str()));
        console.reply("CIA: LAST INPUT STATE SENT ON IO INTERFACE");
    }
}

// The rest

void showVersion(ConsoleContext& console, const ConsoleLine& /*line*/) {
    console.reply(std::string("CIA: DRIVER VERSION ") + kVersion);
}

void leave(ConsoleContext& console, const ConsoleLine& /*line*/) {
    console.reply("ZOLT: Bye Bye...");
    console.host().pause(1);
    console.host().closeConnection();
}

void replyLines(ConsoleContext& console, std::span<const char* const> lines) {
    for (const char* text : lines) {
        console.reply(text);
    }
}

void showHelp(ConsoleContext& console, const ConsoleLine& /*line*/) {
    replyLines(console, help_text::help());
}

void showIoExamples(ConsoleContext& console, const ConsoleLine& /*line*/) {
    replyLines(console, help_text::ioExamples());
}

constexpr std::array kDriverCommands{
    DriverCommand{"SPEED=", Match::kKeywordOnly, setSpeed},
    DriverCommand{"DISABLEPOLL", Match::kExact, disablePolling},
    DriverCommand{"DRVVER", Match::kExact, showVersion},
    DriverCommand{"", Match::kTable, nullptr},
    DriverCommand{"POLLON:", Match::kContains, enableCardPolling},
    DriverCommand{"POLLOFF:", Match::kContains, disableCardPolling},
    DriverCommand{"ENABLEPOLL", Match::kExact, enablePolling},
    DriverCommand{"POLLSTATE", Match::kExact, showPollStates},
    DriverCommand{"DISCOVER", Match::kExact, showCards},
    DriverCommand{"FORCEDISCOVER", Match::kExact, rediscoverCards},
    DriverCommand{"EXIT", Match::kExact, leave},
    DriverCommand{"GETLASTINPST:", Match::kContains, sendLastInput},
    DriverCommand{"HELP", Match::kExact, showHelp},
    DriverCommand{"IOEXAMPLES", Match::kExact, showIoExamples},
};

}  // namespace

std::span<const DriverCommand> driverCommands() {
    return kDriverCommands;
}
