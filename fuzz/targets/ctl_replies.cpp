// Fuzzes what zoltctl reads from a port: banner, items, replies and reports. They arrive
// whole and in pieces, and the peer need not be the daemon.

#include <algorithm>
#include <array>
#include <exception>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "apps/zoltctl/command_line/phrase.h"
#include "apps/zoltctl/commands/card_config.h"
#include "apps/zoltctl/failure.h"
#include "apps/zoltctl/output/output.h"
#include "apps/zoltctl/output/text.h"
#include "apps/zoltctl/ports/dialogue.h"
#include "apps/zoltctl/ports/items.h"
#include "apps/zoltctl/ports/replies.h"
#include "fuzz/support/target.h"

namespace {

constexpr std::size_t kMostBytes = 5000;
/// The size of one piece that arrives.
constexpr std::size_t kPiece = 13;

using Texts = std::vector<std::string>;

/// One configuration command of each form, as its user types it.
const std::array kCommands{
    Texts{"lcd", "E", "self-test", "on"},
    Texts{"lcd", "E", "light", "off"},
    Texts{"analogue", "F", "mask", "3F"},
    Texts{"analogue", "F", "mask"},
    Texts{"analogue", "F", "store"},
    Texts{"servo", "0", "end", "B", "channel", "5", "80"},
    Texts{"servo", "0", "end", "A", "channel", "1"},
    Texts{"servo", "0", "store"},
    Texts{"servo", "0", "restore"},
    Texts{"motor", "A", "silent-range", "2", "20"},
    Texts{"motor", "A", "silent-range", "1"},
    Texts{"motor", "A", "store"},
    Texts{"reboot", "3"},
};

/// Runs `read` and returns false if it fails. It may only fail as the program does: with a
/// text of one line, because the peer refuses or does not look like the daemon.
template <typename Read>
bool reads(Read read) {
    try {
        read();
        return true;
    } catch (const ctl::Failure& failure) {
        const std::string text = failure.what();
        fuzz::require(!text.empty() && ctl::printable(text) == text, "one line, without controls");
        fuzz::require(
            failure.status() == ctl::Status::kNotZolt || failure.status() == ctl::Status::kRefused,
            "a refusal, or none of the daemon's answers");
        return false;
    }
}

void requireJson(const ctl::Json& json) {
    const std::string line = ctl::oneLine(json);
    fuzz::require(line.find('\n') == std::string::npos && nlohmann::json::accept(line),
                  "JSON in one line");
}

std::vector<ctl::Phrase> matchedCommands() {
    Texts patterns;
    for (const ctl::CardConfigRow& row : ctl::cardConfigRows()) {
        patterns.emplace_back(row.pattern);
    }
    std::vector<ctl::Phrase> phrases;
    for (const Texts& command : kCommands) {
        phrases.push_back(ctl::matchPhrase(command, patterns));
    }
    return phrases;
}

void readConfigReply(const ctl::Reply& reply) {
    static const std::vector<ctl::Phrase> phrases = matchedCommands();
    for (const ctl::Phrase& phrase : phrases) {
        const ctl::CardConfigRow& row = ctl::cardConfigRows()[phrase.index];
        reads([&] {
            const ctl::Fields told = ctl::parseConfigReply(row, phrase.fields, reply);
            fuzz::require(!ctl::filledIn(row.text, told).empty(), "a result has a text");
            requireJson(ctl::configJson(row, told));
        });
    }
}

void readReply(const ctl::Reply& reply) {
    for (const char* command : {"DISCOVER", "FORCEDISCOVER"}) {
        reads([&] {
            fuzz::require(ctl::parseCards(reply, command).size() == 16, "sixteen addresses");
        });
    }
    reads([&] { ctl::parsePollStates(reply, "POLLSTATE"); });
    reads([&] { ctl::onlyLine(reply, "DRVVER", "CIA: DRIVER VERSION "); });
    readConfigReply(reply);
    requireJson({{"reply", reply.lines}});
}

/// All items, as many as come before a failure.
Texts itemsOf(std::string_view received, const std::string& separator, std::size_t piece) {
    Texts items;
    ctl::ItemReader reader(separator);
    reads([&] {
        for (std::size_t at = 0; at < received.size(); at += piece) {
            reader.feed(received.substr(at, piece));
            while (auto item = reader.next()) {
                items.push_back(*item);
            }
        }
    });
    return items;
}

void readConsole(std::string_view received, const std::string& separator) {
    const Texts items = itemsOf(received, separator, kMostBytes);
    fuzz::require(itemsOf(received, separator, kPiece) == items, "pieces give the same items");
    ctl::Dialogue dialogue(separator);
    reads([&] {
        for (const std::string& item : items) {
            const ctl::Dialogue::Event event = dialogue.feed(item);
            fuzz::require(!event.reply || !event.unasked, "one event at a time");
            if (event.reply) {
                readReply(*event.reply);
            }
        }
    });
    // The lines after the last prompt.
    readReply({dialogue.lines(), false, true});
}

void readReports(std::string_view received, const std::string& separator) {
    ctl::LineReader reader({separator, "\r\n"});
    reads([&] {
        for (std::size_t at = 0; at < received.size(); at += kPiece) {
            reader.feed(received.substr(at, kPiece));
            while (const auto line = reader.next()) {
                fuzz::require(!line->empty(), "no line is empty");
                const std::optional<ctl::Report> report = ctl::parseReport(*line);
                fuzz::require(!report || (report->block < 16 && ctl::hexDigit(report->address)),
                              "a report of an address and a block");
            }
        }
    });
}

std::string_view afterBanner(std::string_view received) {
    ctl::BannerFinder whole("ZOLT CAE interface is ready\r\n\r");
    ctl::BannerFinder pieces("ZOLT CAE interface is ready\r\n\r");
    const bool found = whole.feed(received);
    bool foundInPieces = false;
    std::size_t at = 0;
    for (; at < received.size() && !foundInPieces; at += kPiece) {
        foundInPieces = pieces.feed(received.substr(at, kPiece));
    }
    fuzz::require(found == foundInPieces && whole.before() == pieces.before(),
                  "pieces give the same banner");
    return found ? received.substr(received.size() - whole.behind().size()) : received;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view received = afterBanner(fuzz::textOf(data, size, kMostBytes));
    std::optional<ctl::SeparatorFound> found;
    reads([&] { found = ctl::findSeparator(received); });
    for (const std::string& separator :
         {std::string("\r\n"), std::string(), found ? found->outSeparator : std::string(";")}) {
        readConsole(received, separator);
        readReports(received, separator);
    }
    return 0;
}
